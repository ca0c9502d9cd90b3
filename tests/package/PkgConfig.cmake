# A host builds with the flags that pkg-config gives for the installed package, and runs.
include(${CMAKE_CURRENT_LIST_DIR}/Common.cmake)
check_hosts_with_pkg_config(installed ${PREFIX}/${LIBDIR} ${SAMPLES})
run(pkg-config --exists --print-errors orvida-models)
