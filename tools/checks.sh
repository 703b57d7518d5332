# Checks and tests that are counted. Sourced, not run. With "filter" set, only those run that have it in their names.

passed=0 failed=0

# count PASSED FAILED NAME
count() {
  passed=$((passed + $1)) failed=$((failed + $2))
  [[ $2 -eq 0 ]] || printf 'FAILED: %s\n' "$3"
}

# wanted NAME: whether the filter lets a check run, which is announced.
wanted() {
  local wanted=${filter-}
  [[ ${1,,} == *"${wanted,,}"* ]] && printf '\n--- %s\n' "$1"
}

# check NAME COMMAND ...: one check that the command decides.
check() {
  wanted "$1" || return
  if "${@:2}"; then count 1 0 "$1"; else count 0 1 "$1"; fi
}

# check_counted NAME COMMAND ...: checks that the command counts in its last line.
check_counted() {
  local name=$1 last
  wanted "$name" || return
  last=$("${@:2}" | tee >(cat >&2) | tail -n 1)
  if [[ $last =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
    count "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}" "$name"
  else
    count 0 1 "$name did not run to its end"
  fi
}

# count_results NAME FILE: the results that a GoogleTest program writes at its end. Under Wine a crash can exit with 0.
count_results() {
  if [[ $(grep -m1 '<testsuites ' "$2" 2>/dev/null) =~ tests=\"([1-9][0-9]*)\"\ failures=\"([0-9]+)\" ]]; then
    count $((BASH_REMATCH[1] - BASH_REMATCH[2])) "${BASH_REMATCH[2]}" "$1"
  else
    count 0 1 "$1 did not run to its end"
  fi
}

# run_suites NAME PRESET COMMAND ...: the tests of a build folder, by ctest.
run_suites() {
  local folder=build/$2 suite suites
  printf '\n--- %s\n' "$1"
  rm -rf "$folder/results"
  "${@:3}" ctest --test-dir "$folder" --output-on-failure
  suites=$(ctest --test-dir "$folder" --show-only | sed -n 's/^ *Test *#[0-9]*: //p')
  for suite in ${suites:-"any suite"}; do
    # Wine loses a start in some thousand. What crashes does so again.
    [[ -e $folder/results/$suite.xml ]] || "${@:3}" ctest --test-dir "$folder" --output-on-failure -R "^$suite\$"
    count_results "$suite" "$folder/results/$suite.xml"
  done
}

# build PRESET [TARGET ...]
build() { cmake --preset "$1" >/dev/null && cmake --build --preset "$1" ${2+--target "${@:2}"}; }

# summarise: the closing line. Fails when something failed, and when nothing ran.
summarise() {
  printf '\n%d passed, %d failed\n' "$passed" "$failed"
  [[ $failed -eq 0 && $passed -gt 0 ]]
}
