# Has the headers of the standard library that most sources include compiled once for a target, or taken
# from another target that has done so (FROM): a build spends over a third of its time on them. Sources
# name what they use all the same, and the lint preset compiles without.
function(precompile_standard_headers target)
    cmake_parse_arguments(reuse "" FROM "" ${ARGN})
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        return()  # others want the same definitions for all that share the headers
    endif()
    if(reuse_FROM)
        target_precompile_headers(${target} REUSE_FROM ${reuse_FROM})
    else()
        target_precompile_headers(${target} PRIVATE
            <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <span> <string>
            <string_view> <utility> <vector>)
    endif()
endfunction()
