# An installation has a database to begin with, with the sample problem in it.
if(NOT EXISTS ${DIRECTORY}/DB/Hollin.mdb)
  execute_process(COMMAND ${DIRECTORY}/hollin-database create ${DIRECTORY}/DB/Hollin.mdb --sample
                          COMMAND_ERROR_IS_FATAL ANY)
endif()
