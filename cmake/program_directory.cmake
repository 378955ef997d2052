# Lays out in DIRECTORY what the programs expect beside them; message files come from SHARE.
file(MAKE_DIRECTORY ${DIRECTORY}/DB ${DIRECTORY}/file)
foreach(name errmsg.txt message.txt questions.txt survey.txt)
  if(NOT EXISTS ${DIRECTORY}/file/${name})
    file(COPY ${SHARE}/${name} DESTINATION ${DIRECTORY}/file)
  endif()
endforeach()
