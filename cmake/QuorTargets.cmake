# One place for what every target of this project has in common.

# Every build folder and every checkout finds what another one has compiled: paths below this checkout
# count as relative ones. Debug information then names the folder of the first that compiled a source.
find_program(QUOR_CCACHE ccache)
if(QUOR_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
    "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1 CCACHE_ABSSTDERR=1 "${QUOR_CCACHE}")
endif()

# Qt's headers take longer to read than our sources. A machine that builds everything once reads them
# once for several sources of a target; names in those must then differ even without linkage. A
# precompiled header instead would take longer, hundreds of MB for each target, and every build folder
# would miss the compiler cache.
if(QUOR_UNITY)
  set(CMAKE_UNITY_BUILD ON)
  set(CMAKE_UNITY_BUILD_BATCH_SIZE 16)
endif()
# Generated sources of a target need nothing of the libraries that it links, so they do not wait for them.
set(CMAKE_AUTOGEN_ORIGIN_DEPENDS OFF)

add_library(quor_flags INTERFACE)
target_compile_options(quor_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast
  $<$<BOOL:${QUOR_WERROR}>:-Werror>)
# The arithmetic is compared to the last bit: a multiplication is never fused with an addition.
target_compile_options(quor_flags INTERFACE -ffp-contract=off)
target_compile_definitions(quor_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(QUOR_SANITIZE)
  add_compile_options(-fsanitize=${QUOR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${QUOR_SANITIZE} -fno-sanitize-recover=all)
endif()
if(QUOR_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# quor_library(NAME [MODEL] SOURCES ... LINK ...)
# One static library of a folder. A MODEL has no widget: it may link Qt Core and Qt Gui and other
# models, and configuring stops where it could reach Qt Widgets.
function(quor_library name)
  cmake_parse_arguments(arg "MODEL" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
  target_link_libraries(${name} PUBLIC ${arg_LINK} PRIVATE quor_flags)
  if(arg_MODEL)
    set_target_properties(${name} PROPERTIES AUTOUIC OFF)
    foreach(library IN LISTS arg_LINK)
      if(library MATCHES "^Qt6::" AND NOT library MATCHES "^Qt6::(Core|Gui)$")
        message(FATAL_ERROR "${name} is a model and must not link ${library}")
      endif()
      if(library MATCHES "^quor_" AND NOT library MATCHES "^quor_(core|storage|.*_model)$")
        message(FATAL_ERROR "${name} is a model and must not link ${library}")
      endif()
    endforeach()
  endif()
endfunction()
