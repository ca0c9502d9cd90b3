# Compile and link options of all targets of this project. None of them reaches a host that links the
# libraries.

# For all targets: strict warnings, and Qt without its implicit conversions and keyword macros.
function(orvida_target_options target)
  target_compile_features(${target} PUBLIC cxx_std_17)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor)
  if(ORVIDA_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  target_compile_definitions(${target} PRIVATE
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH)
endfunction()

# Which versions are binary compatible: soname and find_package() follow one rule. While the major version
# is 0, every minor version may break hosts; after that, only a major one does.
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(ORVIDA_SOVERSION 0.${PROJECT_VERSION_MINOR})
  set(ORVIDA_COMPATIBILITY SameMinorVersion)
else()
  set(ORVIDA_SOVERSION ${PROJECT_VERSION_MAJOR})
  set(ORVIDA_COMPATIBILITY SameMajorVersion)
endif()

# A shared library of the product: hidden unless exported, soname with the compatible version, every symbol
# resolved when it is linked (sanitizer runtimes resolve theirs in the executable).
#
# It stays in memory after dlclose() until the process ends, because what it hands out depends on it:
# QStringLiteral texts, such as log messages, are its static data, and its code destroys catalogs and fields.
# A host could not know when the last of these is gone.
function(orvida_library_options target)
  orvida_target_options(${target})
  set_target_properties(${target} PROPERTIES
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    INSTALL_RPATH $ORIGIN
    VERSION ${PROJECT_VERSION}
    SOVERSION ${ORVIDA_SOVERSION})
  target_link_options(${target} PRIVATE LINKER:-z,nodelete)
  if(NOT ORVIDA_SANITIZE AND NOT ORVIDA_FUZZ)
    target_link_options(${target} PRIVATE LINKER:--no-undefined)
  endif()
endfunction()

# Headers are included by their path below the source folder ("catalogs/model/Catalog.h"), in the build as
# after an installation. Sets `result` to the include root for `folder`: the source folder itself, so that
# compilers and editors name the real files. With a host layer of its own, that root would still offer our
# stand-in as "shared/..."; so each folder then gets a root in the build tree that contains only a link to it.
function(orvida_include_root folder result)
  set(root ${PROJECT_SOURCE_DIR})
  if(ORVIDA_HOST_TARGET)
    set(root ${PROJECT_BINARY_DIR}/include-${folder})
    file(MAKE_DIRECTORY ${root})
    if(NOT EXISTS ${root}/${folder})
      file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${folder} ${root}/${folder} SYMBOLIC)
    endif()
  endif()
  set(${result} ${root} PARENT_SCOPE)
endfunction()

# Public headers of `target`, relative to `folder`: installed with their folders, and compiled one by one in
# preset dev to prove that each is self-contained.
function(orvida_public_headers target folder)
  orvida_include_root(${folder} root)
  list(TRANSFORM ARGN PREPEND ${root}/${folder}/)
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${root} FILES ${ARGN})
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${root}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/orvida>)
endfunction()
