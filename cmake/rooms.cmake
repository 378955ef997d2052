# One static library for each folder of src/. Includes are written from src/ ("core/Common.h"), and the
# link dependencies say who may include whom.
function(hollin_room name)
  set(room ${CMAKE_SOURCE_DIR}/src/${name})
  file(GLOB sources CONFIGURE_DEPENDS ${room}/*.cpp)
  file(GLOB forms CONFIGURE_DEPENDS ${room}/*.ui)
  file(GLOB resources CONFIGURE_DEPENDS ${room}/*.qrc)
  qt_wrap_ui(sources ${forms})
  qt_add_resources(sources ${resources})
  set(target hollin_${name})
  add_library(${target} STATIC ${sources})
  target_include_directories(
    ${target}
    PUBLIC ${CMAKE_SOURCE_DIR}/src
    PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
  target_link_libraries(${target} PUBLIC ${ARGN})
  hollin_precompile(${target})
endfunction()

# All targets share one precompiled header of the toolkit, built once.
function(hollin_precompile target)
  if(TARGET hollin_precompiled)
    target_precompile_headers(${target} REUSE_FROM hollin_precompiled)
  endif()
endfunction()

file(WRITE ${CMAKE_BINARY_DIR}/precompiled.cpp "")
add_library(hollin_precompiled OBJECT ${CMAKE_BINARY_DIR}/precompiled.cpp)
target_link_libraries(hollin_precompiled PRIVATE Qt6::Widgets)
target_compile_definitions(hollin_precompiled PRIVATE SQLITE_HAS_CODEC QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
target_precompile_headers(hollin_precompiled PRIVATE <QtWidgets/QtWidgets> <optional> <vector> <map> <functional>)
