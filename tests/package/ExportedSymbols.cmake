# Each library exports exactly what its *.symbols file lists: its soname, and the symbols that hosts link
# against. A line that disappears or changes breaks hosts. ORVIDA_UPDATE=1 rewrites the lists.
include(${CMAKE_CURRENT_LIST_DIR}/Common.cmake)

# Weak symbols are inline functions that were not inlined, and type information: that differs from build to build. Ours
# are hidden, so only those of Qt and the standard library are left out.
set(ours "(Orvida::|CCatalogTokenizer|ICatalogFileNameProvider)")

# Sets `listing` to the soname and symbols of a library.
function(list_exports library)
  run(${READELF} --dynamic ${library})
  string(REGEX MATCH "soname: \\[[^]]+\\]" listing "${output}")
  run(${NM} --dynamic --defined-only --demangle ${library})
  string(REPLACE ";" "," output "${output}")
  string(REGEX MATCHALL "[^\n]+" lines "${output}")
  set(symbols "")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "^[0-9a-f]+ (.) " "" symbol "${line}")
    if(NOT CMAKE_MATCH_1 MATCHES "[WVu]" OR symbol MATCHES "^([a-z ]* )?${ours}")
      list(APPEND symbols "${symbol}")
    endif()
  endforeach()
  list(SORT symbols)
  list(REMOVE_DUPLICATES symbols)
  list(JOIN symbols "\n" symbols)
  set(listing "${listing}\n${symbols}\n" PARENT_SCOPE)
endfunction()

string(REPLACE ":" ";" LIBRARIES "${LIBRARIES}")
foreach(library IN LISTS LIBRARIES)
  string(REGEX REPLACE "^.*/lib([a-z]+)\\.so.*$" "\\1.symbols" name "${library}")
  list_exports(${library})
  if(DEFINED ENV{ORVIDA_UPDATE})
    file(WRITE ${CMAKE_CURRENT_LIST_DIR}/${name} "${listing}")
    continue()
  endif()
  difference(${CMAKE_CURRENT_LIST_DIR}/${name} "${listing}")
  if(difference)
    message(SEND_ERROR "${library} exports other symbols than ${name} lists. If that is intended, see Versions in "
      "CONTRIBUTING.md and rewrite the list: ORVIDA_UPDATE=1 ctest -R ExportedSymbols\n${difference}")
  endif()
endforeach()
