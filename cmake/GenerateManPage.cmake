# cmake -DHELP2MAN=... -DPROGRAM=... -DDESCRIPTION=... [-DSUBCOMMANDS=a,b] -DOUTPUT=page.1
#   -P GenerateManPage.cmake
# Writes OUTPUT and OUTPUT.gz (gzip -9n, as Debian installs manual pages).
# Programs with a window answer --help without a display.
set(ENV{QT_QPA_PLATFORM} offscreen)
get_filename_component(name ${PROGRAM} NAME)

set(include_text "")
string(REPLACE "," ";" subcommands "${SUBCOMMANDS}")
foreach(sub IN LISTS subcommands)
    execute_process(COMMAND ${PROGRAM} ${sub} --help
        OUTPUT_VARIABLE help RESULT_VARIABLE result ERROR_QUIET)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${name} ${sub} --help failed (${result})")
    endif()
    # Shown as it is printed: roff escapes for backslashes and for lines
    # that would read as requests.
    string(REPLACE "\\" "\\e" help "${help}")
    string(REGEX REPLACE "(^|\n)([.'])" "\\1\\\\&\\2" help "${help}")
    string(TOUPPER "${name} ${sub}" heading)
    string(APPEND include_text "[${heading}]\n.nf\n${help}.fi\n")
endforeach()
set(include_args)
if(include_text)
    file(WRITE ${OUTPUT}.h2m "${include_text}")
    set(include_args --include=${OUTPUT}.h2m)
endif()

execute_process(COMMAND ${HELP2MAN} --no-info --section=1 --name=${DESCRIPTION}
        ${include_args} --output=${OUTPUT} ${PROGRAM}
    RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "help2man failed on ${PROGRAM} (${result})")
endif()
execute_process(COMMAND gzip -9n -c ${OUTPUT} OUTPUT_FILE ${OUTPUT}.gz RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "gzip failed on ${OUTPUT}")
endif()
