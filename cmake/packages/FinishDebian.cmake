# What Debian wants of a package beyond the files that are installed. cpack runs this on the folders of the
# packages before it packs them.
if(NOT CPACK_GENERATOR STREQUAL DEB)
    return()
endif()
find_program(GZIP gzip REQUIRED)

# Packs a file, with nothing in it of the time or the place.
function(pack file)
    execute_process(COMMAND ${GZIP} -9nf ${file} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

foreach(component ${CPACK_COMPONENTS_ALL})
    set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component}/usr)
    string(TOUPPER ${component} part)
    set(doc ${root}/share/doc/${CPACK_DEBIAN_${part}_PACKAGE_NAME})
    file(MAKE_DIRECTORY ${doc})
    file(COPY_FILE ${CPACK_ZORBY_LICENSE} ${doc}/copyright)
    file(COPY_FILE ${CPACK_ZORBY_CHANGELOG} ${doc}/changelog)
    pack(${doc}/changelog)
    # Debian has the licence once.
    if(EXISTS ${root}/share/doc/quillory/LICENSE)
        file(REMOVE ${root}/share/doc/quillory/LICENSE)
        file(CREATE_LINK ../${CPACK_DEBIAN_${part}_PACKAGE_NAME}/copyright
            ${root}/share/doc/quillory/LICENSE SYMBOLIC)
    endif()
    file(GLOB pages ${root}/share/man/man1/*.1)
    foreach(page ${pages})
        pack(${page})
    endforeach()
    # Where Debian's zsh looks for functions of packages.
    if(EXISTS ${root}/share/zsh/site-functions)
        file(RENAME ${root}/share/zsh/site-functions ${root}/share/zsh/vendor-completions)
    endif()
    # The library is where the system looks for it.
    file(GLOB programs ${root}/bin/*)
    foreach(program ${programs})
        file(RPATH_REMOVE FILE ${program})
    endforeach()
endforeach()
