# The programs and what stands beside them, laid out alike in the build and in an installation.
function(hollin_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WIDGETS" "" "SOURCES;RESOURCES;LIBRARIES")
  qt_add_resources(arg_SOURCES ${arg_RESOURCES})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES})
  if(arg_WIDGETS)
    hollin_precompile(${name} WIDGETS)
  else()
    hollin_precompile(${name})
  endif()
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${HOLLIN_DIRECTORY})
  install(TARGETS ${name} RUNTIME DESTINATION .)
  set_property(GLOBAL APPEND PROPERTY HOLLIN_PROGRAMS ${name})
endfunction()

# The screens of all rooms.
get_property(rooms GLOBAL PROPERTY HOLLIN_ROOMS)
add_library(hollin_screen_table STATIC)
hollin_screen_table(hollin_screen_table ${rooms})
hollin_precompile(hollin_screen_table WIDGETS)

hollin_program(hollin WIDGETS SOURCES src/main.cpp src/CommandLine.cpp RESOURCES src/hollin.qrc
               LIBRARIES hollin_screen_table hollin_help_windows hollin_startup_windows)
hollin_program(hollin-database SOURCES src/tools/DatabaseTool.cpp LIBRARIES hollin_startup)
hollin_program(hollin-batch SOURCES src/tools/Batch.cpp LIBRARIES hollin_analysis hollin_survey)
hollin_program(hollin-figures WIDGETS SOURCES src/tools/FiguresTool.cpp LIBRARIES hollin_figures_windows)

# Reads spreadsheet and text files from outside; the other programs run it. It needs nothing of the toolkit.
file(GLOB readers CONFIGURE_DEPENDS src/sheets/reader/*.cpp)
add_executable(hollin-sheet ${readers})
hollin_include_root(hollin-sheet PRIVATE sheets)
target_link_libraries(hollin-sheet PRIVATE PkgConfig::ZIP EXPAT::EXPAT ${CSV_LIBRARY} ICU::uc)
set_target_properties(hollin-sheet PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${HOLLIN_DIRECTORY})
install(TARGETS hollin-sheet RUNTIME DESTINATION .)
set_property(GLOBAL APPEND PROPERTY HOLLIN_PROGRAMS hollin-sheet)
add_dependencies(hollin hollin-sheet)
add_dependencies(hollin-batch hollin-sheet)

# Users edit the message files and fill the database: what stands in the program directory is never replaced.
add_custom_target(
  hollin_directory ALL
  COMMAND ${CMAKE_COMMAND} -DDIRECTORY=${HOLLIN_DIRECTORY} -DSHARE=${CMAKE_SOURCE_DIR}/share -P
          ${CMAKE_SOURCE_DIR}/cmake/program_directory.cmake
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_SOURCE_DIR}/docs ${HOLLIN_DIRECTORY}/docs
  VERBATIM)
install(CODE "set(DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\")\nset(SHARE \"${CMAKE_SOURCE_DIR}/share\")")
install(SCRIPT cmake/program_directory.cmake)
install(SCRIPT cmake/delivered_database.cmake)
install(FILES share/hollin.desktop share/hollin.svg share/hollin.png README.md LICENSE CHANGELOG.md SECURITY.md DESTINATION .)
install(DIRECTORY docs DESTINATION .)
