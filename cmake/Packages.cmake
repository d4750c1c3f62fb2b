# Packages, which cpack makes of what is installed: Debian packages by component, and an archive of all of
# it that runs from any folder.
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME quillory)
set(CPACK_PACKAGE_CONTACT "The zorby and quillory authors <quillory@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGE_FILE_NAME quillory-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/packages/FinishDebian.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/packages/DropMaintainerScripts.cmake)
set(CPACK_ZORBY_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_ZORBY_CHANGELOG ${CMAKE_CURRENT_LIST_DIR}/packages/changelog)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Libraries that a package needs are found where dpkg-shlibdeps is; zorby is in a package of its own.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

# The system learns of the library, and packages of others how to depend on it.
set(library_version ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(control ${PROJECT_BINARY_DIR}/packages/control)
file(WRITE ${control}/triggers "activate-noawait ldconfig\n")
file(WRITE ${control}/shlibs
    "libzorby ${library_version} libzorby${library_version} (>= ${PROJECT_VERSION})\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${control}/triggers ${control}/shlibs)

# debian_package(COMPONENT PACKAGE SECTION SUMMARY DESCRIPTION [COMPONENT of a package that it needs...])
macro(debian_package component package section summary description)
    string(TOUPPER ${component} part)
    set(CPACK_DEBIAN_${part}_PACKAGE_NAME ${package})
    set(CPACK_DEBIAN_${part}_PACKAGE_SECTION ${section})
    set(CPACK_COMPONENT_${part}_DESCRIPTION "${summary}\n${description}")
    set(CPACK_COMPONENT_${part}_DEPENDS ${ARGN})
    list(APPEND CPACK_COMPONENTS_ALL ${component})
endmacro()

debian_package(data quillory-data text "data files of libzorby and quillory"
    "The dictionary of MARC 21, its code lists, holdings systems and workforms.")
debian_package(library libzorby${library_version} libs
    "what a cataloguing program knows of MARC 21 records"
    "A C++ library of their characters, fields, coded data, workforms and checks." data)
debian_package(development libzorby-dev libdevel "development files of libzorby"
    "Headers and package files, to build programs with libzorby." library)
debian_package(program quillory text "MARC 21 records on the command line"
    "Converts, shows, checks, repairs, edits, compares and makes MARC 21 records." library)
if(TARGET quillory-desk)
    debian_package(desk quillory-desk text "MARC 21 records in a window"
        "Lists, finds, edits and checks the MARC 21 records of a file, and saves them." library)
endif()
set(CPACK_DEBIAN_DATA_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DATA_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libstdc++-12-dev | libstdc++-dev")
# Loaded when they are needed, they are not among what dpkg-shlibdeps finds.
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "libxml2, libyaz5")
set(CPACK_DEBIAN_DESK_PACKAGE_DEPENDS "libxml2, libyaz5")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS fonts-dejavu-core)
set(CPACK_DEBIAN_DESK_PACKAGE_RECOMMENDS "libqt6svg6, fonts-noto-core")

include(CPack)
