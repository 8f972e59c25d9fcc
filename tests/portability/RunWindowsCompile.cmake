# cmake -DCOMPILER=<mingw g++> -DUNITS=<target files> -DWORK_DIR=... -P RunWindowsCompile.cmake
#
# The system folder /usr/include holds this machine's C library, which must
# not shadow the cross compiler's; the other libraries' headers found there
# are offered through a folder of links, searched after the compiler's own.
file(REMOVE_RECURSE ${WORK_DIR})
set(links ${WORK_DIR}/include)
file(MAKE_DIRECTORY ${links})
foreach(name dtl openssl proj.h proj_symbol_rename.h shapefil.h dxflib)
    if(EXISTS /usr/include/${name})
        file(CREATE_LINK /usr/include/${name} ${links}/${name} SYMBOLIC)
    endif()
endforeach()
set(arch_links ${WORK_DIR}/arch)
file(MAKE_DIRECTORY ${arch_links})
file(GLOB arch_dirs LIST_DIRECTORIES true /usr/include/*-linux-gnu/openssl)
foreach(dir ${arch_dirs})
    file(CREATE_LINK ${dir} ${arch_links}/openssl SYMBOLIC)
endforeach()

set(failed "")
set(count 0)
foreach(unit ${UNITS})
    include(${unit})
    set(flags -std=c++17 -fsyntax-only -Wall -Wextra -Werror
        # Qt's headers of this machine declare their functions for import
        # from a DLL only partly; that is theirs, not ours.
        -Wno-attributes)
    foreach(define ${DEFINES})
        list(APPEND flags -D${define})
    endforeach()
    foreach(dir ${INCLUDES} ${AUTOGEN_DIR})
        if(NOT dir STREQUAL "/usr/include")
            list(APPEND flags -I${dir})
        endif()
    endforeach()
    list(APPEND flags -idirafter ${links} -idirafter ${links}/dxflib -idirafter ${arch_links})
    foreach(source ${SOURCES})
        if(NOT source MATCHES "\\.cpp$" OR source MATCHES "_autogen/")
            continue()
        endif()
        if(NOT IS_ABSOLUTE ${source})
            set(source ${SOURCE_DIR}/${source})
        endif()
        math(EXPR count "${count} + 1")
        execute_process(COMMAND ${COMPILER} ${flags} ${source}
            RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
        if(NOT result EQUAL 0)
            string(APPEND failed "${source}:\n${output}\n")
        endif()
    endforeach()
endforeach()

if(failed)
    message(FATAL_ERROR "Does not compile for Windows:\n${failed}")
endif()
message(STATUS "${count} sources compile for Windows")
