# Warnings and instrumentation shared by all of our own targets.
add_library(project_options INTERFACE)
target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wundef)
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
