# cmake -DBUILD_DIR=... -DCONSUMER_SOURCE_DIR=... -DWORK_DIR=... -DQT_MAJOR_VERSION=5|6 -P RunConsumer.cmake
file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed (${result}): ${ARGN}")
    endif()
endfunction()

set(config_args)
if(CONFIG)
    set(config_args --config ${CONFIG})
endif()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix} ${config_args})
run(${CMAKE_COMMAND} -S ${CONSUMER_SOURCE_DIR} -B ${WORK_DIR}/build
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=Release -DQT_MAJOR_VERSION=${QT_MAJOR_VERSION})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build --parallel 2)
run(${WORK_DIR}/build/consumer)
