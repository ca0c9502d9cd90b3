# Debian packages by CPack: the libraries, what hosts build with, and the tool. Preset `package` makes them:
# cmake --preset package && cmake --build --preset package
set(ORVIDA_PACKAGE_CONTACT "Orvida Catalogs <nobody@orvida.invalid>" CACHE STRING
  "Maintainer of the Debian packages, as Name <address>")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvida-catalogs)
set(CPACK_PACKAGE_CONTACT "${ORVIDA_PACKAGE_CONTACT}")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_COMPONENTS_ALL runtime development tools)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE orvida-catalogs)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Where dpkg-shlibdeps finds our own libraries, which are in no package yet.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "")
foreach(folder catalogs checking models shared)
  list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/${folder})
endforeach()

set(runtime liborvidacatalogs${ORVIDA_SOVERSION})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "coding catalogs of inspection standards - libraries
 Reads the coding catalogs by which inspectors record what they see, checks
 them, and offers item models over them.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME liborvidacatalogs-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION}), qtbase5-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "coding catalogs of inspection standards - development files
 Headers, CMake package, pkg-config files, guides and examples for hosts that
 read coding catalogs.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME orvida-catalog)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "tool for the authors of coding catalogs
 Shows, checks, scrambles and describes the coding catalogs by which inspectors
 record what they see. With a sample, the schemas, manual pages and completion.")

# What Debian's policy asks of every package: who may do what with it, and what changed.
file(TIMESTAMP ${PROJECT_SOURCE_DIR}/CHANGELOG.md date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/debian/changelog @ONLY CONTENT
"orvida-catalogs (@PROJECT_VERSION@) unstable; urgency=medium

  * What changed is told in CHANGELOG.md of the sources.

 -- @ORVIDA_PACKAGE_CONTACT@  @date@
")
find_program(ORVIDA_GZIP gzip)
execute_process(COMMAND ${ORVIDA_GZIP} -9nkf ${PROJECT_BINARY_DIR}/debian/changelog)
foreach(component runtime development tools)
  string(TOUPPER ${component} key)
  set(folder ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${key}_PACKAGE_NAME})
  install(FILES ${PROJECT_BINARY_DIR}/debian/changelog.gz ${PROJECT_SOURCE_DIR}/cmake/debian/copyright
    DESTINATION ${folder} COMPONENT ${component})
endforeach()
# The pages refer to each other as in the sources.
install(FILES ${PROJECT_SOURCE_DIR}/README.md
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/liborvidacatalogs-dev COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/liborvidacatalogs-dev COMPONENT development
  FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN generator EXCLUDE)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/liborvidacatalogs-dev COMPONENT development)
install(FILES ${PROJECT_SOURCE_DIR}/docs/format.md ${PROJECT_SOURCE_DIR}/docs/checking.md
  ${PROJECT_SOURCE_DIR}/docs/comparing.md ${PROJECT_SOURCE_DIR}/docs/json.md
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/orvida-catalog COMPONENT tools)
foreach(component runtime development)
  string(TOUPPER ${component} key)
  install(FILES ${PROJECT_SOURCE_DIR}/cmake/debian/${component}.overrides
    RENAME ${CPACK_DEBIAN_${key}_PACKAGE_NAME}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT ${component})
endforeach()
include(CPack)
