# `cmake --build <dir> --target coverage`: builds, runs the tests of this
# build afresh and reports the line and branch coverage of the libraries, the
# stand-ins and the programs, per folder, with gcovr. The package, ABI and
# cross-compile tests exercise no instrumented code and are left out, as is
# the test that unloads the library: gcov's exit handlers keep it loaded.
find_program(KAMO_GCOVR gcovr)
if(NOT KAMO_GCOVR)
    message(FATAL_ERROR "KAMO_COVERAGE needs gcovr: scripts/install-deps.sh gcovr")
endif()
find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_custom_target(coverage
    COMMAND ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR}
    COMMAND find . -name "*.gcda" -delete
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/coverage
    COMMAND ${CMAKE_CTEST_COMMAND} --output-on-failure --parallel 2 --exclude-regex "^(Package|AbiCheck|WindowsCompile|TranslationResourceTest)"
    COMMAND ${KAMO_GCOVR} --root ${PROJECT_SOURCE_DIR}
            --filter ${PROJECT_SOURCE_DIR}/src/ --filter ${PROJECT_SOURCE_DIR}/host/ --filter ${PROJECT_SOURCE_DIR}/apps/
            --exclude-unreachable-branches --exclude-throw-branches
            --json-summary-pretty --json-summary ${PROJECT_BINARY_DIR}/coverage.json
            --html-details ${PROJECT_BINARY_DIR}/coverage/index.html
            ${PROJECT_BINARY_DIR}
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/scripts/coverage-table.py ${PROJECT_BINARY_DIR}/coverage.json
    WORKING_DIRECTORY ${PROJECT_BINARY_DIR}
    USES_TERMINAL
    VERBATIM)
