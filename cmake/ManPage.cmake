# Manual pages of the programs, made by help2man from their own --help and
# --version, so that they say what the program says. A program with
# subcommands lists each one's --help in a section of its own.
#   kamo_man_page(<target> "<one-line description>" [SUBCOMMAND...])
# Skipped without help2man and in builds whose programs cannot run here.
find_program(KAMO_HELP2MAN help2man)
if(NOT KAMO_HELP2MAN)
    message(STATUS "help2man not found: no manual pages")
endif()

function(kamo_man_page target description)
    if(NOT KAMO_HELP2MAN OR KAMO_SANITIZE OR CMAKE_CROSSCOMPILING)
        return()
    endif()
    set(page ${PROJECT_BINARY_DIR}/man/${target}.1)
    string(REPLACE ";" "," subcommands "${ARGN}")
    add_custom_command(OUTPUT ${page}.gz
        COMMAND ${CMAKE_COMMAND} -DHELP2MAN=${KAMO_HELP2MAN} -DPROGRAM=$<TARGET_FILE:${target}>
            -DDESCRIPTION=${description} -DSUBCOMMANDS=${subcommands} -DOUTPUT=${page}
            -P ${PROJECT_SOURCE_DIR}/cmake/GenerateManPage.cmake
        DEPENDS ${target} ${PROJECT_SOURCE_DIR}/cmake/GenerateManPage.cmake
        COMMENT "Manual page ${target}(1)"
        VERBATIM)
    add_custom_target(${target}-man ALL DEPENDS ${page}.gz)
    install(FILES ${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT programs)
endfunction()
