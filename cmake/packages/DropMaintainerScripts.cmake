# Takes out of the packages the scripts that call ldconfig, which cpack adds to each that has a shared
# library under /usr/lib. The trigger of the library's package does that work, and what quillory loads
# itself needs none. cpack runs this once the packages are made.
if(NOT CPACK_GENERATOR STREQUAL DEB)
    return()
endif()
find_program(DPKG_DEB dpkg-deb REQUIRED)

foreach(package ${CPACK_PACKAGE_FILES})
    set(root ${package}.unpacked)
    execute_process(COMMAND ${DPKG_DEB} -R ${package} ${root} COMMAND_ERROR_IS_FATAL ANY)
    if(EXISTS ${root}/DEBIAN/postinst)
        file(REMOVE ${root}/DEBIAN/postinst ${root}/DEBIAN/postrm)
        execute_process(COMMAND ${DPKG_DEB} --root-owner-group -Zgzip -b ${root} ${package}
            OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    endif()
    file(REMOVE_RECURSE ${root})
endforeach()
