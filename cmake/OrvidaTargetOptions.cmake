# What every target of this project is compiled with. Used by the folders' CMakeLists.txt; nothing here
# reaches a host that links the libraries.

if(CMAKE_CXX_CLANG_TIDY)
  # What moc writes is not ours to check. clang-tidy asks for one check that is on; this one finds nothing here.
  file(WRITE ${PROJECT_BINARY_DIR}/.clang-tidy "Checks: '-*,llvm-twine-local'\n")
endif()

# Compiler habits of all our own targets: strict warnings, and Qt without its implicit conversions and
# keyword macros.
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
# It stays in memory when a host closes it with dlclose(), and is taken down when the process ends. What it
# hands out leads back into it: QStringLiteral texts, such as log messages, are its static data, and catalogs
# are released and fields are called by its code. A host could not know when nothing of that is left.
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
# after an installation. Gives the include root for those of `folder` in the variable `result`: the source
# folder itself, so that compilers and editors name the real files. Only when a host has put its own layer in
# place of shared/ would "shared/..." then still find our stand-in; there, each folder gets a root of its own
# in the build tree, which holds nothing but a link to it.
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

# Public headers of `target`, listed relative to their folder: installed with their folders, and compiled
# one by one in the dev preset to prove that each stands alone.
function(orvida_public_headers target folder)
  orvida_include_root(${folder} root)
  list(TRANSFORM ARGN PREPEND ${root}/${folder}/)
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${root} FILES ${ARGN})
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${root}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/orvida>)
endfunction()
