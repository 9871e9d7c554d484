# Installs the library into a throw-away prefix, then configures, builds and
# runs a consumer project against it.
#   cmake -DBUILD_DIR=... -DWORK_DIR=... -DCONSUMER_SOURCE=... -DGENERATOR=...
#         [-DPROGRAM=<program the project builds>] [-DEXPECTED=<regex of its output>]
#         -P RunConsumer.cmake
# Without PROGRAM and EXPECTED it runs the consumer project's own program.

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed (${result}): ${ARGN}\n${output}")
    endif()
    set(last_output "${output}" PARENT_SCOPE)
endfunction()

if(NOT PROGRAM)
    set(PROGRAM consumer)
    set(EXPECTED "consumer: user data folder ${WORK_DIR}/home/Library/Preferences/Pelkaro AB/Pelkaro")
endif()

set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${prefix} ${WORK_DIR}/build)
file(MAKE_DIRECTORY ${WORK_DIR}/home)

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
foreach(file lib/libcore.so.2 lib/libcore.so.2.4.0 lib/libplugincore.so.2 lib/libimage.so.2
             lib/libutils.so.2 include/Pelkaro/KVApplication.h include/Pelkaro/kvcore_export.h
             include/Pelkaro/kvcore_version.h lib/cmake/PelkaroCore/PelkaroCoreConfig.cmake)
    if(NOT EXISTS ${prefix}/${file})
        message(FATAL_ERROR "not installed: ${file}")
    endif()
endforeach()
# Public headers only: no private header, no private folder.
file(GLOB_RECURSE _private RELATIVE ${prefix} ${prefix}/include/*_p.h ${prefix}/include/*/private/*
    ${prefix}/include/*/KVLog.h)
if(_private)
    message(FATAL_ERROR "private headers installed: ${_private}")
endif()

run(${CMAKE_COMMAND} -S ${CONSUMER_SOURCE} -B ${WORK_DIR}/build -G "${GENERATOR}"
    -DCMAKE_PREFIX_PATH=${prefix})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run(${WORK_DIR}/build/${PROGRAM})
if(NOT last_output MATCHES "${EXPECTED}")
    message(FATAL_ERROR "unexpected consumer output: ${last_output}")
endif()
message(STATUS "${last_output}")
