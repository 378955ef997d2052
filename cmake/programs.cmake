# The three programs and what stands beside them, laid out alike in the build and in an installation.
function(hollin_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES})
  hollin_precompile(${name})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${HOLLIN_DIRECTORY})
  install(TARGETS ${name} RUNTIME DESTINATION .)
endfunction()

hollin_program(hollin SOURCES src/main.cpp src/ScreenTable.cpp LIBRARIES hollin_registration hollin_analysis)
