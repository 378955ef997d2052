# Who may include whom: headers along the direction of the rooms are found, those against it are not.
# DIRECTORIES is a file with a line "LIBRARY|INCLUDE DIRECTORY|…" for each library.
set(allowed
    "core database/Connection.h" "core_windows QWidget" "hierarchy core/Common.h" "evaluation hierarchy/TreePlace.h"
    "analysis hierarchy/TreePlace.h" "analysis evaluation/Evaluation.h" "comparison judgement/ComparisonScale.h"
    "evaluation judgement/Limits.h" "survey screens/Progress.h" "survey judgement/Consistency.h")
set(forbidden
    "text files/TextFile.h" "files database/Connection.h" "database core/Common.h" "printing database/Connection.h"
    "printing core/Common.h" "widgets core/Screen.h" "widgets database/Connection.h" "text QWidget" "widgets QWidget"
    "judgement core/Common.h" "judgement database/Connection.h" "core rounds/RoundSelection.h" "core printing/Printer.h"
    "core judgement/Limits.h" "hierarchy printing/Report.h" "printing judgement/Limits.h" "core QWidget"
    "registration rounds/RoundSelection.h" "registration hierarchy/TreePlace.h" "comparison screens/Work.h"
    "hierarchy rounds/RoundSelection.h" "rounds screens/Work.h" "screens evaluation/Evaluation.h"
    "comparison evaluation/Evaluation.h" "evaluation analysis/FinalResult.h" "evaluation comparison/ComparisonGrid.h"
    "figures analysis/FinalResult.h" "figures evaluation/Evaluation.h"
    "evaluation QWidget" "analysis QWidget" "survey QWidget" "analysis startup/SampleProblem.h")

function(look_up case expected)
  separate_arguments(case)
  list(GET case 0 library)
  list(GET case 1 header)
  file(STRINGS ${DIRECTORIES} directories REGEX "^${library}[|]")
  string(REPLACE "|" ";" directories "${directories}")
  list(POP_FRONT directories)
  list(TRANSFORM directories PREPEND -I)
  file(WRITE ${DIRECTORIES}.cpp "#include <${header}>\n")
  execute_process(COMMAND ${COMPILER} -std=c++20 -E ${directories} ${DIRECTORIES}.cpp
                  RESULT_VARIABLE code OUTPUT_QUIET ERROR_VARIABLE errors)
  if(code EQUAL 0)
    set(found found)
  elseif(errors MATCHES "${header}(: No such file|' file not found)")
    set(found missing)
  else()
    set(found "neither found nor missing: ${errors}")
  endif()
  if(NOT found STREQUAL expected)
    message(SEND_ERROR "${library} includes ${header}: ${found}, expected ${expected}")
  endif()
endfunction()

foreach(case IN LISTS allowed)
  look_up("${case}" found)
endforeach()
foreach(case IN LISTS forbidden)
  look_up("${case}" missing)
endforeach()
