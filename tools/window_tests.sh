# shellcheck shell=bash
# What tests of windows on a private screen share. Sourced with the root of the repository as working directory; `folder` is
# where pictures and what programs say are kept.
# shellcheck disable=SC2154
patience=60 # seconds until what is waited for must have come: more than the busiest machine takes

# --- What a test says ------------------------------------------------------------------------------------

problems=0
complain() {
  echo "$*"
  problems=$((problems + 1))
}

# becomes EXPECTED WHAT COMMAND...: waits until the command prints EXPECTED.
becomes() {
  local expected=$1 what=$2 actual
  shift 2
  local end=$((SECONDS + patience))
  while actual=$("$@"); [[ $actual != "$expected" ]]; do
    [[ $SECONDS -lt $end ]] || { complain "$what: expected \"$expected\", is \"$actual\"" && return 1; }
    xdotool sleep 0.05
  done
}

# --- Windows ---------------------------------------------------------------------------------------------

# visible_windows CRITERION PATTERN: a line for each. A window that vanishes meanwhile ends the search, which begins anew then.
visible_windows() {
  local found
  until found=$(xdotool search --onlyvisible "$1" "$2" 2>&1) || [[ $found != *"X Error"* ]]; do :; done
  grep -xE '[0-9]+' <<<"$found" || true
}
window_titled() { visible_windows --name "^$1\$" | tail -n 1; }
is_seen() { if [[ -n $(window_titled "$1") ]]; then echo seen; else echo gone; fi; }

# Whether the keyboard is the window's of that title. A click on a form that another one gives it to late may be lost.
is_active() {
  local window
  window=$(window_titled "$1")
  if [[ -n $window && $(xdotool getwindowfocus 2>/dev/null) == "$window" ]]; then echo active; else echo inactive; fi
}

# place_of_window TITLE: prints X, Y, WIDTH and HEIGHT as the window is seen, each as a variable's value.
place_of_window() {
  local place
  until place=$(xdotool getwindowgeometry --shell "$(window_titled "$1")" 2>/dev/null | grep -E '^(X|Y|WIDTH|HEIGHT)=[0-9-]+$') &&
    [[ $(wc -l <<<"$place") -eq 4 ]]; do
    [[ $(is_seen "$1") == seen ]] || { echo "the window \"$1\" is gone" >&2 && return 1; }
  done
  echo "$place"
}

# close_window TITLE: by the keyboard, as soon as it has that
close_window() {
  becomes active "the window \"$1\"" is_active "$1" || return
  xdotool key alt+F4
}

# --- Hand and eye ----------------------------------------------------------------------------------------

point_away() { xdotool mousemove 2 2 sleep 0.1 mousemove 1 1; }
picture() { import -silent -window root "$folder/$1.png" || true; }

# ends_with STATUS: the program that was shown
ends_with() {
  local status=0 end=$((SECONDS + patience))
  while kill -0 "$shown" 2>/dev/null; do
    [[ $SECONDS -lt $end ]] || { complain "the program does not end" && return 1; }
    xdotool sleep 0.05
  done
  wait "$shown" || status=$?
  [[ $status -eq $1 ]] || complain "expected exit status $1, is $status: $(cat "$folder/said.txt")"
}

says_now() { if grep -qF -- "$1" "$folder/said.txt"; then echo yes; else echo no; fi; }
says() { [[ $(says_now "$1") == yes ]] || complain "expected \"$1\" in: $(cat "$folder/said.txt")"; }

# --- Running them ----------------------------------------------------------------------------------------

now() { echo $((${EPOCHREALTIME/./} / 1000)); }

# run_tests SUITE FILTER: the functions test_X as the tests SUITE.X whose names hold FILTER, printed as GoogleTest does.
# Each sets `shown` to the process that it has started, if any. Ends the script.
run_tests() {
  local suite=$1 name verdict start begun
  local -a tests bad=()
  mapfile -t tests < <(compgen -A function test_ | sed "s/^test_/$suite./" | grep -F -- "$2" || true)
  begun=$(now)
  echo "[==========] Running ${#tests[@]} tests from 1 test suite."
  for name in "${tests[@]}"; do
    echo "[ RUN      ] $name"
    problems=0
    shown=
    start=$(now)
    point_away
    "test_${name#*.}" || [[ $problems -gt 0 ]] || complain "the test ended early"
    if [[ $problems -gt 0 ]]; then
      picture "failed-${name#*.}"
      bad+=("$name")
    fi
    [[ -z $shown ]] || kill "$shown" 2>/dev/null || true
    if [[ $problems -eq 0 ]]; then verdict="[       OK ]"; else verdict="[  FAILED  ]"; fi
    echo "$verdict $name ($(($(now) - start)) ms)"
  done
  echo "[==========] ${#tests[@]} tests from 1 test suite ran. ($(($(now) - begun)) ms total)"
  echo "[  PASSED  ] $((${#tests[@]} - ${#bad[@]})) tests."
  [[ ${#bad[@]} -eq 0 ]] && exit
  echo "[  FAILED  ] ${#bad[@]} tests, listed below:"
  printf '[  FAILED  ] %s\n' "${bad[@]}"
  exit 1
}
