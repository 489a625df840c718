# The help: our own pages, compiled into a collection that lies beside the program.

find_package(Qt6 6.4 QUIET OPTIONAL_COMPONENTS ToolsTools)
if(TARGET Qt6::qhelpgenerator)
  set(quor_helpgenerator $<TARGET_FILE:Qt6::qhelpgenerator>)
else()
  find_program(QUOR_HELPGENERATOR NAMES qhelpgenerator qhelpgenerator-qt6
    HINTS "${QT6_INSTALL_PREFIX}/${QT6_INSTALL_LIBEXECS}" "${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS}"
    PATHS /usr/lib/qt6/libexec /usr/lib/qt6/bin
    REQUIRED)
  set(quor_helpgenerator "${QUOR_HELPGENERATOR}")
endif()

# quor_help(NAME FOLDER): the target NAME makes Quor.qch and Quor.qhc of FOLDER/Quor.qhp and its pages.
function(quor_help name folder)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS
    "${folder}/*.html" "${folder}/*.css" "${folder}/*.png" "${folder}/*.qhp")
  # The collection's file names the pages' file by the way from itself.
  set(collection "${CMAKE_BINARY_DIR}/Quor.qhcp")
  configure_file("${folder}/Quor.qhcp" "${collection}" COPYONLY)
  # No page needs a screen to be compiled.
  set(run "${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen "${quor_helpgenerator}" -s)
  add_custom_command(
    OUTPUT "${CMAKE_BINARY_DIR}/Quor.qch"
    COMMAND ${run} "${folder}/Quor.qhp" -o "${CMAKE_BINARY_DIR}/Quor.qch"
    DEPENDS ${sources}
    COMMENT "Compiling the pages of the help"
    VERBATIM)
  add_custom_command(
    OUTPUT "${CMAKE_BINARY_DIR}/Quor.qhc"
    COMMAND ${run} "${collection}" -o "${CMAKE_BINARY_DIR}/Quor.qhc"
    DEPENDS "${collection}" "${CMAKE_BINARY_DIR}/Quor.qch"
    COMMENT "Compiling the collection of the help"
    VERBATIM)
  add_custom_target(${name} ALL
    DEPENDS "${CMAKE_BINARY_DIR}/Quor.qch" "${CMAKE_BINARY_DIR}/Quor.qhc")
  install(FILES "${CMAKE_BINARY_DIR}/Quor.qch" "${CMAKE_BINARY_DIR}/Quor.qhc"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/quor")
endfunction()
