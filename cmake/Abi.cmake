# The ABI check of the three shared libraries against the baseline in abi/,
# one file per library written by abidw (a Qt 6 build's libraries, named
# with -qt6, have their own): what a host built against this
# major version relies on (see docs/versioning.md).
#
#   cmake --build <build> --target abi-baseline   renews the baseline
#   ctest -R AbiCheck                              compares the build with it
#
# Both need abidw and abidiff (Debian's abigail-tools) and the debug
# information they read the types from. The baseline comes from a gcc
# RelWithDebInfo build on x86_64, and only a build of that kind is compared
# with it: another compiler's debug information or another architecture's
# sizes would show differences no host sees, and an unoptimised build
# exports the inline functions of Qt's classes it did not inline, which
# would count as additions (or, in a baseline made from it, as removals).
find_program(KAMO_ABIDW abidw)
find_program(KAMO_ABIDIFF abidiff)
if(NOT KAMO_ABIDW OR NOT KAMO_ABIDIFF)
    message(STATUS "abidw/abidiff not found (abigail-tools): no ABI check")
    return()
endif()
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU" OR NOT CMAKE_BUILD_TYPE STREQUAL "RelWithDebInfo"
   OR NOT CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    message(STATUS "ABI check only in a gcc RelWithDebInfo build on x86_64")
    return()
endif()

# Types of the installed headers are the interface, types of any other
# header of ours are internal (Qt's and the standard library's count as
# interface where ours use them). abidw knows a header by its file name: the
# debug information names it by the path the compiler found it on, which
# differs between a library and its users. So it gets a folder with a link
# to each installed header, by name. Every installed header counts for every
# library: a type of Kamo_view's headers is part of kamo_tools' interface
# where kamo_tools' functions take it.
get_property(kamo_abi_headers GLOBAL PROPERTY KAMO_PUBLIC_HEADERS)
set(kamo_abi_headers_dir ${PROJECT_BINARY_DIR}/abi/headers)
file(REMOVE_RECURSE ${kamo_abi_headers_dir})
file(MAKE_DIRECTORY ${kamo_abi_headers_dir})
foreach(header ${kamo_abi_headers})
    get_filename_component(name ${header} NAME)
    file(CREATE_LINK ${header} ${kamo_abi_headers_dir}/${name} SYMBOLIC COPY_ON_ERROR)
endforeach()

set(kamo_abi_settings ${PROJECT_BINARY_DIR}/abi/settings.cmake)
file(GENERATE OUTPUT ${kamo_abi_settings} CONTENT "set(ABIDW [[${KAMO_ABIDW}]])
set(ABIDIFF [[${KAMO_ABIDIFF}]])
set(MAJOR ${PROJECT_VERSION_MAJOR})
set(BASELINE_DIR [[${PROJECT_SOURCE_DIR}/abi]])
set(WORK_DIR [[${PROJECT_BINARY_DIR}/abi]])
set(LIBRARIES [[$<TARGET_FILE:kamo_tools>;$<TARGET_FILE:Kamo_view>;$<TARGET_FILE:Kamo_base>]])
set(HEADERS_DIR [[${kamo_abi_headers_dir}]])
set(SUPPRESSIONS [[$<$<EQUAL:${QT_MAJOR_VERSION},6>:${PROJECT_SOURCE_DIR}/abi/qt6.suppr>]])
")

add_custom_target(abi-baseline
    COMMAND ${CMAKE_COMMAND} -DSETTINGS=${kamo_abi_settings} -DMODE=baseline
        -P ${PROJECT_SOURCE_DIR}/cmake/RunAbi.cmake
    DEPENDS kamo_tools Kamo_view Kamo_base
    COMMENT "ABI baseline: ${PROJECT_SOURCE_DIR}/abi"
    VERBATIM)

if(KAMO_BUILD_TESTS)
    add_test(NAME AbiCheck
        COMMAND ${CMAKE_COMMAND} -DSETTINGS=${kamo_abi_settings} -DMODE=check
            -P ${PROJECT_SOURCE_DIR}/cmake/RunAbi.cmake)
    set_tests_properties(AbiCheck PROPERTIES TIMEOUT 600)
endif()
