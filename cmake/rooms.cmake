# hollin_room(NAME [USES ROOM…] [WINDOWS SOURCE…] [LIBRARIES …] [PRIVATE_LIBRARIES …])
#
# A folder of src/ is a room. It exposes itself alone, below an include directory of its own, so that
# "core/Common.h" is found only by the rooms that use core: a wrong include does not compile. What a room that it
# USES may include, it may include too.
#
# Its library hollin_NAME knows no widget. The sources listed as WINDOWS (without ".cpp"; ALL for every one) and the
# forms go into hollin_NAME_windows, which programs without a window do not link.
function(hollin_room name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "USES;WINDOWS;LIBRARIES;PRIVATE_LIBRARIES")
  set_property(GLOBAL APPEND PROPERTY HOLLIN_ROOMS ${name})
  set(room ${CMAKE_SOURCE_DIR}/src/${name})
  file(GLOB sources CONFIGURE_DEPENDS ${room}/*.cpp)
  file(GLOB forms CONFIGURE_DEPENDS ${room}/*.ui)
  file(GLOB resources CONFIGURE_DEPENDS ${room}/*.qrc)
  set(windows ${sources})
  if(NOT "${arg_WINDOWS}" STREQUAL "ALL")
    list(TRANSFORM arg_WINDOWS REPLACE "(.+)" "${room}/\\1.cpp" OUTPUT_VARIABLE windows)
  endif()
  list(REMOVE_ITEM sources ${windows})

  set(target hollin_${name})
  list(TRANSFORM arg_USES PREPEND hollin_ OUTPUT_VARIABLE used)
  if(sources)
    qt_add_resources(sources ${resources})
    add_library(${target} STATIC ${sources})
    target_link_libraries(${target} PUBLIC Qt6::Gui ${used} ${arg_LIBRARIES} PRIVATE ${arg_PRIVATE_LIBRARIES})
    hollin_include_root(${target} PUBLIC ${name})
    hollin_precompile(${target})
  else()
    add_library(${target} INTERFACE)
    target_link_libraries(${target} INTERFACE ${used} ${arg_LIBRARIES})
    hollin_include_root(${target} INTERFACE ${name})
  endif()

  # Every room has its second library, be it empty: through it a room's windows reach those of the rooms below.
  list(TRANSFORM used APPEND _windows OUTPUT_VARIABLE below)
  if(windows)
    qt_wrap_ui(windows ${forms})
    add_library(${target}_windows STATIC ${windows})
    target_link_libraries(${target}_windows PUBLIC Qt6::Widgets ${target} ${below})
    target_include_directories(${target}_windows PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
    hollin_precompile(${target}_windows WIDGETS)
  else()
    add_library(${target}_windows INTERFACE)
    target_link_libraries(${target}_windows INTERFACE ${target} ${below})
  endif()
endfunction()

# The directory through which TARGET and, by the SCOPE, its users include the headers of a room.
function(hollin_include_root target scope room)
  set(root ${CMAKE_BINARY_DIR}/rooms/${room})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${room} ${root}/${room} SYMBOLIC)
  target_include_directories(${target} ${scope} ${root})
endfunction()

# hollin_precompile(TARGET [WIDGETS]): headers of the toolkit, compiled once with the widgets, and once without them
# for whoever must not know any.
function(hollin_precompile target)
  set(component Gui)
  if("WIDGETS" IN_LIST ARGN)
    set(component Widgets)
  endif()
  set(shared hollin_precompiled_${component})
  if(NOT TARGET ${shared})
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/precompiled.cpp CONTENT "")
    add_library(${shared} OBJECT ${CMAKE_BINARY_DIR}/precompiled.cpp)
    target_link_libraries(${shared} PRIVATE Qt6::${component})
    target_precompile_headers(${shared} PRIVATE <Qt${component}/Qt${component}> <optional> <vector> <map> <functional>)
  endif()
  target_precompile_headers(${target} REUSE_FROM ${shared})
endfunction()
