cmake_minimum_required(VERSION 3.25)

# Whose statements are no constants: those of the schema itself. Everybody else binds values, and nobody goes past the
# database room. SOURCES is the folder src.
set(schema_statements core/Schema.cpp database/Connection.h database/Recordset.h database/Sql.h tools/DatabaseTool.cpp)

file(GLOB_RECURSE files RELATIVE ${SOURCES} ${SOURCES}/*.h ${SOURCES}/*.cpp)
foreach(file IN LISTS files)
  file(READ ${SOURCES}/${file} text)
  if(text MATCHES "SchemaSql" AND NOT file IN_LIST schema_statements)
    message(SEND_ERROR "${file} makes a statement while the program runs: its text is a constant, its values are bound")
  elseif(text MATCHES "sqlite3_" AND NOT file MATCHES "^database/")
    message(SEND_ERROR "${file} uses the engine itself: Connection and Recordset do")
  endif()
endforeach()
