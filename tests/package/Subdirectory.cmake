# A host that builds the library as part of its project, with automatic moc on, runs. What it installs, here
# into absolute folders, serves another host with CMake and pkg-config.
include(${CMAKE_CURRENT_LIST_DIR}/Common.cmake)
set(host ${BUILD_DIR}/subdirectory-host)
set(installed ${SCRATCH_DIR}/absolute)
file(REMOVE_RECURSE ${installed})
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/package/subdirectory -B ${host} -G ${GENERATOR}
  -DCMAKE_CXX_COMPILER=${CXX} -DORVIDA_INSTALL=ON -DCMAKE_INSTALL_PREFIX=${installed}/prefix
  -DCMAKE_INSTALL_LIBDIR=${installed}/libraries -DCMAKE_INSTALL_INCLUDEDIR=${installed}/headers)
run(${CMAKE_COMMAND} --build ${host})
run(${host}/subdirectory ${BUILD_DIR}/samples/)
check_tiny_host_output("${output}")

run(${CMAKE_COMMAND} --install ${host})
file(GLOB_RECURSE relative ${installed}/prefix/*)
if(relative)
  message(FATAL_ERROR "installed below the prefix despite absolute folders: ${relative}")
endif()
check_tiny_host_with_cmake(subdirectory ${installed}/libraries/cmake ${BUILD_DIR}/samples/)
check_tiny_host_with_pkg_config(subdirectory ${installed}/libraries ${BUILD_DIR}/samples/)
