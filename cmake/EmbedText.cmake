# Text files as constants of a program.
#
# embed_text(TARGET FILE CONSTANT HEADER) adds the text of a file to a target, as the constant
# (a std::string_view, by its full name) that the header declares. The constant follows the file.
# A library of its own holds it: a target with files that have to be made is not compiled before
# all that it links is there.
if(NOT CMAKE_SCRIPT_MODE_FILE)
    set(embed_text_script ${CMAKE_CURRENT_LIST_FILE})
    function(embed_text target file constant header)
        set(input ${CMAKE_CURRENT_SOURCE_DIR}/${file})
        set(source ${CMAKE_CURRENT_BINARY_DIR}/${file}.cpp)
        add_custom_command(OUTPUT ${source}
            COMMAND ${CMAKE_COMMAND} -D input=${input} -D source=${source}
                -D constant=${constant} -D header=${header} -P ${embed_text_script}
            DEPENDS ${input} ${embed_text_script}
            COMMENT "Embedding ${file}" VERBATIM)
        if(NOT TARGET ${target}_texts)
            add_library(${target}_texts STATIC)
            target_include_directories(${target}_texts PRIVATE ${PROJECT_SOURCE_DIR})
            target_link_libraries(${target}_texts PRIVATE project_options)
            target_link_libraries(${target} PRIVATE ${target}_texts)
        endif()
        target_sources(${target}_texts PRIVATE ${source})
    endfunction()
    return()
endif()

# As a script, this file makes the source.
file(READ ${input} text)
string(FIND "${text}" ")text\"" end)
if(NOT end EQUAL -1)
    message(FATAL_ERROR "${input}: )text\" ends the constant that the file becomes")
endif()
# The standard demands 65,536 bytes of a literal; the compilers take more, and warn.
file(WRITE ${source}
    "#include <${header}>\n\n#pragma GCC diagnostic ignored \"-Woverlength-strings\"\n\nconstinit const std::string_view ${constant} = R\"text(${text})text\";\n")
