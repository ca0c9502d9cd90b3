# Installs into a scratch prefix: all public headers and no private one, the tool, samples and schemas.
include(${CMAKE_CURRENT_LIST_DIR}/Common.cmake)
file(REMOVE_RECURSE ${PREFIX})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${PREFIX})

foreach(folder catalogs checking models shared)
  file(GLOB_RECURSE expected RELATIVE ${SOURCE_DIR} ${SOURCE_DIR}/${folder}/*.h)
  list(FILTER expected EXCLUDE REGEX "_p\\.h$")
  file(GLOB_RECURSE installed RELATIVE ${PREFIX}/${INCLUDEDIR}/orvida
    ${PREFIX}/${INCLUDEDIR}/orvida/${folder}/*)
  list(SORT expected)
  list(SORT installed)
  if(NOT installed STREQUAL expected)
    message(FATAL_ERROR "installed headers:\n${installed}\nexpected:\n${expected}")
  endif()
endforeach()

run(${PREFIX}/bin/orvida-catalog show ${SAMPLES}tunnels.xml)
if(NOT output MATCHES "^tunnels.xml: profile ROUTE, ")
  message(FATAL_ERROR "the installed tool printed:\n${output}")
endif()

run(${PREFIX}/bin/orvida-catalog show --readable ${SAMPLES}tunnels-readable.xml)
if(NOT output MATCHES "^tunnels-readable.xml: profile ROUTE, ")
  message(FATAL_ERROR "the installed tool printed of the readable sample:\n${output}")
endif()

foreach(schema catalog catalog-readable)
  if(NOT EXISTS ${PREFIX}/${DATADIR}/orvida-catalogs/${schema}.xsd)
    message(FATAL_ERROR "the schema ${schema}.xsd is not installed")
  endif()
endforeach()
