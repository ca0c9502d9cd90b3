# Chooses the host layer that the catalog library is built against: the stand-in in shared/, or the target
# that ORVIDA_HOST_TARGET names. Sets ORVIDA_HOST_LAYER to the target to link, and ORVIDA_HOST_PACKAGE to the
# package in which an installed library finds it again.

set(ORVIDA_HOST_PACKAGE "")
if(NOT ORVIDA_HOST_TARGET)
  add_subdirectory(shared)
  set(ORVIDA_HOST_LAYER orvidashared)
  return()
endif()

if(ORVIDA_HOST_TARGET MATCHES "^([^:]+)::")
  set(ORVIDA_HOST_PACKAGE ${CMAKE_MATCH_1})
  if(NOT TARGET ${ORVIDA_HOST_TARGET})
    find_package(${ORVIDA_HOST_PACKAGE} REQUIRED)
  endif()
endif()
if(NOT TARGET ${ORVIDA_HOST_TARGET})
  message(FATAL_ERROR
    "ORVIDA_HOST_TARGET names '${ORVIDA_HOST_TARGET}', which is no target here. Define it before this "
    "project is added with add_subdirectory(), or give it as Package::Target with the package on "
    "CMAKE_PREFIX_PATH.")
endif()
set(ORVIDA_HOST_LAYER ${ORVIDA_HOST_TARGET})
