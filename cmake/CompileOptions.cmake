# Warnings and instrumentation shared by all of our own targets.
add_library(project_options INTERFACE)
# Precompiled headers go only with the options that they were compiled with, -pthread of a library among
# them; so all sources have it.
target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wundef -pthread)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # Memory for time: the compiler seldom stops to free what it no longer needs.
    target_compile_options(project_options INTERFACE
        "SHELL:--param ggc-min-heapsize=262144" "SHELL:--param ggc-min-expand=200")
    # g++ 12 takes copies of short texts for copies that overlap themselves, or go beyond their end.
    if(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(project_options INTERFACE
            -Wno-restrict -Wno-array-bounds -Wno-stringop-overflow)
    endif()
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

# Has an optimised build of a target take less time, where the code need not be as quick as it can be.
function(build_quickly target)
    target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O1>)
endfunction()
