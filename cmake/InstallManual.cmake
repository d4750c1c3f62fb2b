# Manual pages and completion of a program, printed by itself once it is built, and installed in the
# component.
function(install_manual program component)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/manual/${program})
    set(print ${CMAKE_COMMAND} -E env QUILLORY_SYNC=off $<TARGET_FILE:${program}>)
    add_custom_command(TARGET ${program} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E rm -rf ${folder}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}/man1
        COMMAND ${print} man -o ${folder}/man1
        COMMAND ${print} completion bash -o ${folder}/${program}
        COMMAND ${print} completion zsh -o ${folder}/_${program}
        COMMAND ${print} completion fish -o ${folder}/${program}.fish
        VERBATIM)
    set(share ${CMAKE_INSTALL_DATADIR})
    install(DIRECTORY ${folder}/man1 DESTINATION ${CMAKE_INSTALL_MANDIR} COMPONENT ${component})
    install(FILES ${folder}/${program} DESTINATION ${share}/bash-completion/completions
        COMPONENT ${component})
    install(FILES ${folder}/_${program} DESTINATION ${share}/zsh/site-functions
        COMPONENT ${component})
    install(FILES ${folder}/${program}.fish DESTINATION ${share}/fish/vendor_completions.d
        COMPONENT ${component})
endfunction()
