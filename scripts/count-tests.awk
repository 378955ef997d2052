# Counts the tests in the output of "ctest -V": each line of a test program begins with the program's number. Prints
# passed, failed, skipped.

function program() { return $1 + 0 }

/^[0-9]+: \[       OK \] /                  { passed++; counted[program()]++ }
/^[0-9]+: \[  SKIPPED \] .* \([0-9]+ ms\)$/ { skipped++; counted[program()]++ }
# The list at the end of a program's output names the failed tests once more, without a time.
/^[0-9]+: \[  FAILED  \] .* \([0-9]+ ms\)$/ { failed++; counted[program()]++; blamed[program()]++ }

# The verdict on the program. One that did not end well without a failed test has crashed, was stopped or leaked.
/^ *[0-9]+\/[0-9]+ Test +#[0-9]+: / {
    number = $0
    sub(/^[^#]*#/, "", number)
    number += 0
    verdicts++
    if ($0 ~ /[ .]   Passed /) { if (!counted[number]) passed++ }
    else if (!blamed[number]) failed++
}

# ctest did not get to run anything.
END { if (!verdicts) failed++; print passed + 0, failed + 0, skipped + 0 }
