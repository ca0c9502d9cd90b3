# Installation: libraries and headers (through their file sets), the CMake package OrvidaCatalogs and the
# pkg-config files orvida-catalogs and orvida-checking. The folders CMAKE_INSTALL_* may be relative to the prefix
# or absolute.
include(CMakePackageConfigHelpers)

set(ORVIDA_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/OrvidaCatalogs)
set(ORVIDA_INSTALLED_TARGETS orvidacatalogs)
set(ORVIDA_COMPONENTS Catalogs)
set(ORVIDA_PC_HOST_LIBS "")
if(TARGET orvidashared)
  list(APPEND ORVIDA_INSTALLED_TARGETS orvidashared)
  list(APPEND ORVIDA_COMPONENTS Shared)
  set(ORVIDA_PC_HOST_LIBS " -lorvidashared")
endif()

# Installs libraries with their headers, and the file `name`.cmake that gives them to hosts.
function(orvida_install_export name)
  install(TARGETS ${ARGN} EXPORT ${name}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orvida COMPONENT development)
  install(EXPORT ${name} NAMESPACE Orvida:: DESTINATION ${ORVIDA_INSTALL_CMAKEDIR} COMPONENT development)
  if(IS_ABSOLUTE ${CMAKE_INSTALL_INCLUDEDIR})
    # CMake 3.25 looks for file sets below the prefix, absolute or not.
    cmake_path(ABSOLUTE_PATH ORVIDA_INSTALL_CMAKEDIR BASE_DIRECTORY "\${CMAKE_INSTALL_PREFIX}"
      OUTPUT_VARIABLE folder)
    install(CODE "
      set(file \"\$ENV{DESTDIR}${folder}/${name}.cmake\")
      file(READ \"\${file}\" targets)
      string(REPLACE \"\\\${_IMPORT_PREFIX}//\" \"/\" targets \"\${targets}\")
      file(WRITE \"\${file}\" \"\${targets}\")" COMPONENT development)
  endif()
endfunction()

orvida_install_export(OrvidaCatalogsTargets ${ORVIDA_INSTALLED_TARGETS})
set(pkgconfig_names orvida-catalogs)
if(ORVIDA_BUILD_CHECKING)
  orvida_install_export(OrvidaCheckingTargets orvidachecking)
  list(APPEND ORVIDA_COMPONENTS Checking)
  list(APPEND pkgconfig_names orvida-checking)
endif()
if(ORVIDA_WITH_MODELS)
  orvida_install_export(OrvidaModelsTargets orvidamodels)
  list(APPEND ORVIDA_COMPONENTS Models)
  list(APPEND pkgconfig_names orvida-models)
endif()

list(JOIN ORVIDA_COMPONENTS ", " ORVIDA_COMPONENT_NAMES)
configure_package_config_file(cmake/OrvidaCatalogsConfig.cmake.in
  ${PROJECT_BINARY_DIR}/OrvidaCatalogsConfig.cmake INSTALL_DESTINATION ${ORVIDA_INSTALL_CMAKEDIR}
  NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/OrvidaCatalogsConfigVersion.cmake
  COMPATIBILITY ${ORVIDA_COMPATIBILITY})
install(FILES
  ${PROJECT_BINARY_DIR}/OrvidaCatalogsConfig.cmake
  ${PROJECT_BINARY_DIR}/OrvidaCatalogsConfigVersion.cmake
  DESTINATION ${ORVIDA_INSTALL_CMAKEDIR} COMPONENT development)

# The pkg-config file finds the prefix relative to its own folder, so that an installation can be moved. With
# an absolute library folder it cannot.
set(ORVIDA_PC_PREFIX ${CMAKE_INSTALL_PREFIX})
if(NOT IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
  file(RELATIVE_PATH up /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
  set(ORVIDA_PC_PREFIX "\${pcfiledir}/${up}")
endif()
cmake_path(APPEND ORVIDA_PC_LIBDIR "\${prefix}" ${CMAKE_INSTALL_LIBDIR})
cmake_path(APPEND ORVIDA_PC_INCLUDEDIR "\${prefix}" ${CMAKE_INSTALL_INCLUDEDIR})
set(ORVIDA_PC_REQUIRES "Qt5Core >= 5.15")
if(ORVIDA_HOST_TARGET AND ORVIDA_HOST_PKGCONFIG)
  string(APPEND ORVIDA_PC_REQUIRES ", ${ORVIDA_HOST_PKGCONFIG}")
elseif(ORVIDA_HOST_TARGET)
  message(STATUS "orvida-catalogs.pc does not name the host layer: users of pkg-config have to add the "
    "flags of ${ORVIDA_HOST_TARGET} themselves, unless ORVIDA_HOST_PKGCONFIG gives its pkg-config name")
endif()
foreach(name IN LISTS pkgconfig_names)
  configure_file(cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development)
endforeach()

if(ORVIDA_BUILD_PACKAGES)
  include(OrvidaDebian)
endif()
