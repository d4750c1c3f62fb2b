# Warnings and instrumentation shared by all of our own targets.
add_library(project_options INTERFACE)
target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wundef)
# g++ 12 takes the assignment of a short literal to a string for a copy that overlaps itself.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(project_options INTERFACE -Wno-restrict)
endif()
if(ZORBY_WERROR)
    target_compile_options(project_options INTERFACE -Werror)
endif()
if(ZORBY_SANITIZE)
    add_compile_options(-fsanitize=${ZORBY_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${ZORBY_SANITIZE})
endif()
if(ZORBY_COVERAGE)
    add_compile_options(--coverage -O0)
    add_link_options(--coverage)
endif()
