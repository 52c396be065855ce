# Installs the build into a temporary prefix, builds examples/chost against it twice (with the CMake
# package and with pkg-config), runs both hosts and the installed console.
#   cmake -DBUILD_DIR=... -DSOURCE_DIR=... -DWORK_DIR=... [-DEXTRA_C_FLAGS=...] -P InstallAndBuildExample.cmake
cmake_minimum_required(VERSION 3.25)

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
  set(RUN_OUTPUT "${out}" PARENT_SCOPE)
endfunction()

set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

# What a host program needs is where the packages say it is.
foreach(file include/tavidlg/TaviDlg.h include/velbrook/ServerStore.h lib/cmake/TaviDlg/TaviDlgConfig.cmake
             lib/cmake/VelbrookStore/VelbrookStoreConfig.cmake lib/pkgconfig/tavidlg.pc
             lib/pkgconfig/velbrook-store.pc bin/velbrook-console bin/velbrook-store)
  if(NOT EXISTS ${prefix}/${file})
    message(FATAL_ERROR "not installed: ${file}")
  endif()
endforeach()

# The example with find_package(TaviDlg).
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples/chost -B ${WORK_DIR}/build -G Ninja
    -DCMAKE_PREFIX_PATH=${prefix} "-DCMAKE_C_FLAGS=${EXTRA_C_FLAGS}" "-DCMAKE_EXE_LINKER_FLAGS=${EXTRA_C_FLAGS}")
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run(${WORK_DIR}/build/velbrook-example-host ${WORK_DIR}/example.db EditQuotas --cancel)
if(NOT RUN_OUTPUT STREQUAL "EditQuotas: cancelled\n")
  message(FATAL_ERROR "unexpected output of the CMake-built host: ${RUN_OUTPUT}")
endif()

# The same host with pkg-config, linked by hand.
set(ENV{PKG_CONFIG_PATH} ${prefix}/lib/pkgconfig)
run(pkg-config --cflags --libs tavidlg)
string(STRIP "${RUN_OUTPUT}" flags)
separate_arguments(flags UNIX_COMMAND "${flags} ${EXTRA_C_FLAGS}")
run(cc ${SOURCE_DIR}/examples/chost/host.c ${flags} -Wl,-rpath,${prefix}/lib -o ${WORK_DIR}/pc-host)
run(${WORK_DIR}/pc-host ${WORK_DIR}/example.db EditFileLogConfig --cancel)
if(NOT RUN_OUTPUT STREQUAL "EditFileLogConfig: cancelled\n")
  message(FATAL_ERROR "unexpected output of the pkg-config-built host: ${RUN_OUTPUT}")
endif()

# The installed console finds the installed library beside it.
run(${prefix}/bin/velbrook-console --store ${WORK_DIR}/console.db --screenshot ${WORK_DIR}/shots)
if(NOT EXISTS ${WORK_DIR}/shots/EditQuotas.png)
  message(FATAL_ERROR "the installed console rendered no dialog")
endif()
file(REMOVE_RECURSE ${WORK_DIR})
