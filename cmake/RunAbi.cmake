# cmake -DSETTINGS=<build>/abi/settings.cmake -DMODE=baseline|check -P RunAbi.cmake
#
# baseline: writes the ABI of each library to abi/<library>.abi.
# check:    compares each library with its baseline: additions are reported
#           and pass, any other change of the interface fails.
cmake_minimum_required(VERSION 3.18)
include(${SETTINGS})
file(MAKE_DIRECTORY ${BASELINE_DIR} ${WORK_DIR})

# The description of a library's interface: what its exported functions
# and variables reach, without the types of internal headers. The same from
# every clean build on every machine: no folders (locations by file name),
# type ids from the types themselves, no versions of the libraries it links.
set(abidw_options --headers-dir ${HEADERS_DIR} --drop-private-types --exported-interfaces-only
    --no-corpus-path --no-comp-dir-path --short-locs --no-elf-needed --type-id-style hash)

function(write_abi library output)
    execute_process(COMMAND ${ABIDW} ${abidw_options} --out-file ${output} ${library}
        RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "abidw failed (${result}) on ${library}")
    endif()
endfunction()

# Runs abidiff on the library's baseline and its current description (the
# caller's baseline, current and name). The status is a set of bits:
# 1 error, 2 usage error, 4 ABI change, 8 incompatible ABI change.
function(run_abidiff status_var report_var)
    set(suppressions)
    if(SUPPRESSIONS)
        set(suppressions --suppressions ${SUPPRESSIONS})
    endif()
    execute_process(COMMAND ${ABIDIFF} ${suppressions} ${ARGN} ${baseline} ${current}
        RESULT_VARIABLE status OUTPUT_VARIABLE report ERROR_VARIABLE report)
    set(error 1)
    if(status MATCHES "^[0-9]+$")
        math(EXPR error "${status} & 3")
    endif()
    if(error)
        message(FATAL_ERROR "abidiff failed (${status}) on ${name}:\n${report}")
    endif()
    set(${status_var} ${status} PARENT_SCOPE)
    set(${report_var} "${report}" PARENT_SCOPE)
endfunction()

set(renew "cmake --build <build> --target abi-baseline")
set(failed "")
foreach(library ${LIBRARIES})
    get_filename_component(name ${library} NAME_WE)
    set(baseline ${BASELINE_DIR}/${name}.abi)
    if(MODE STREQUAL "baseline")
        write_abi(${library} ${baseline})
        message(STATUS "ABI baseline: ${baseline}")
        continue()
    endif()

    if(NOT EXISTS ${baseline})
        message(FATAL_ERROR "No ABI baseline ${baseline}: make it with `${renew}`.")
    endif()
    # A new major version may break the ABI: its first build gets a new
    # baseline, and that one holds until the next major version.
    file(STRINGS ${baseline} corpus LIMIT_COUNT 1 REGEX "soname=")
    if(NOT corpus MATCHES "soname='[^']*\\.so\\.([0-9]+)'")
        message(FATAL_ERROR "${baseline} names no soname with a major version")
    endif()
    if(NOT CMAKE_MATCH_1 EQUAL MAJOR)
        message(FATAL_ERROR "${baseline} is the ABI of major version ${CMAKE_MATCH_1}, "
            "the build is of major version ${MAJOR}. A new major version starts a new "
            "baseline: renew it with `${renew}` and commit abi/.")
    endif()

    set(current ${WORK_DIR}/${name}.abi)
    write_abi(${library} ${current})
    run_abidiff(status report)
    math(EXPR incompatible "${status} & 8")
    if(status AND NOT incompatible)
        # A type of the interface that grew or changed its members is only
        # an "ABI change" to abidiff, yet it breaks hosts built against the
        # old layout. Without the additions, nothing may be left.
        run_abidiff(status_without_additions ignored --no-added-syms)
        if(status_without_additions)
            set(incompatible 1)
        endif()
    endif()
    if(incompatible)
        message("${name}: incompatible with the baseline ${baseline}:\n${report}")
        list(APPEND failed ${name})
    elseif(status)
        message("${name}: additions to the baseline (fine in a minor release):\n${report}")
    endif()
endforeach()

if(failed)
    message(FATAL_ERROR "The ABI of ${failed} breaks what hosts built against major version "
        "${MAJOR} rely on (docs/versioning.md). Undo the change, or make it in the next major version.")
endif()
