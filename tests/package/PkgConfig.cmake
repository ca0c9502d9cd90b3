# Hosts build with the flags that pkg-config gives for the installed packages, and run.
include(${CMAKE_CURRENT_LIST_DIR}/Common.cmake)
check_tiny_host_with_pkg_config(installed ${PREFIX}/${LIBDIR} ${SAMPLES})
set(ENV{PKG_CONFIG_PATH} ${PREFIX}/${LIBDIR}/pkgconfig)
set(ENV{LD_LIBRARY_PATH} ${PREFIX}/${LIBDIR})
build_with_pkg_config(orvida-checking checkinghost ${SCRATCH_DIR}/checkinghost-program)
check_checking_host(${SCRATCH_DIR}/checkinghost-program ${SAMPLES})
run(pkg-config --exists --print-errors orvida-models)
