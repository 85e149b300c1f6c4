# shellcheck shell=bash
# The tests of tools/test-components, a function each. What they use is there and in tools/window_tests.sh.
# shellcheck disable=SC2034,SC2154

# --- Scripts ---------------------------------------------------------------------------------------------

test_TheScriptHostRunsVBScript() { run vbscript wine cscript //nologo "$(windows_path "$clients/late_binding.vbs")"; }
test_TheScriptHostRunsJScript() { run jscript wine cscript //nologo "$(windows_path "$clients/late_binding.js")"; }
test_TheScriptControlKnowsControlsByNamesOfTheirs() {
  run script_control wine cscript //nologo "$(windows_path "$clients/script_control.vbs")"
}

test_AScriptEngineCallsHandlersByNameInVBScript() {
  run handlers_vbs wine "$(client_of script_host)" VBScript "$(windows_path "$clients/handlers.vbs")"
}
test_AScriptEngineCallsHandlersByNameInJScript() {
  run handlers_js wine "$(client_of script_host)" JScript "$(windows_path "$clients/handlers.js")"
}

# --- The library's own forms -----------------------------------------------------------------------------

# The scene as a script of a form. No control of the scene has the focus.
scene_in_lua() {
  awk '
    BEGIN { print "form:add(\"FlatButton\", \"cmdFirst\", { Left = 9300, Top = 6300, Width = 150, Height = 150 })" }
    function Literal(member, text) {
      if (text ~ /^(True|False)$/) return tolower(text)
      return text ~ /^[0-9]+$/ && member !~ /^(Text|RowData)$/ ? text : "\"" text "\""
    }
    $1 == "control" {
      printf "local c = form:add(\"%s\", \"%s\", { Left = %d, Top = %d, Width = %d, Height = %d })\n", $2, $2, $3 * 15, $4 * 15,
             $5 * 15, $6 * 15
      next
    }
    {
      verb = $1
      sub(/^[a-z]+ /, "")
      count = split($0, word, "|")
      if (verb == "set") {
        line = "c." word[1]
        for (i = 2; i < count; ++i) line = line "[" word[i] "]"
        print line " = " Literal(word[1], word[count])
      } else {
        sub(/\.Add$/, ":Add", word[1])
        line = (word[1] ~ /:/ ? "c." : "c:") word[1] "("
        for (i = 2; i <= count; ++i) line = line (i > 2 ? ", " : "") Literal(word[1], word[i])
        print line ")"
      }
    }' "$scene"
}

# Prints where the controls are in the window of the library's own form, as clients do.
places_in_form() {
  local place X Y WIDTH HEIGHT border
  place=$(place_of_window "Own form") || return
  eval "$place"
  border=$(((WIDTH - 640) / 2))
  awk -v left=$((X + border)) -v top=$((Y + HEIGHT - border - 440)) \
    '$1 == "control" { print "at", $2, left + $3, top + $4, $5, $6 }' "$scene"
}

# Takes the pictures that those of all containers are compared with, once.
take_own_pictures() {
  local control
  [[ ! -e $folder/own.txt ]] || return 0
  scene_in_lua >"$folder/own.lua"
  printf '[form]\nName = "frmOwn"\nCaption = "Own form"\nWidth = 9600\nHeight = 6600\nScript = "own.lua"\n' >"$folder/own.form.toml"
  wine "$(client_of levelwidgets)" show "$(windows_path "$folder/own.form.toml")" </dev/null >"$folder/said.txt" 2>&1 &
  shown=$!
  becomes seen "the library's own form" is_seen "Own form" || { cat "$folder/said.txt" && return 1; }
  places_in_form >"$folder/own.txt"
  point_away
  xdotool sleep 0.3
  picture own
  for control in $controls; do picture_of own "$control" "own-$control"; done
  xdotool key alt+F4
  ends_with 0
}

# --- The system's control host ---------------------------------------------------------------------------

# raises NAME CONTROL EVENT NUMBER: waits for an event of the control, by name or by number, that follows the last "shown"
raises() { becomes yes "$3 of $2" says_since_shown "$1" "event $2 ($3|$4)"; }

# try_controls NAME: what a person does with the controls of the scene in the window of a client that shows them
try_controls() {
  local name=$1 control
  becomes 1 "that the controls are shown" said "$name" shown || return
  point_away
  picture "$name"
  for control in $controls; do
    picture_of "$name" "$control" "$name-$control"
    [[ $(differing "own-$control" "$name-$control") == 0 ]] || complain "$control looks other than in a form of the library's own"
  done
  click "$name" FlatButton
  raises "$name" FlatButton Click 1
  click "$name" FlatScroll 115 8
  raises "$name" FlatScroll Change 1
  click "$name" FlatTabStrip 120 6
  raises "$name" FlatTabStrip "TabChange 0 2" 9
  click "$name" FlatTextBox
  xdotool key a key b
  raises "$name" FlatTextBox "KeyPress 98" "5 98"
  click "$name" FlatDropDown 115 10
  xdotool sleep 0.3
  picture "$name-list"
  xdotool key Escape
  click "$name" FlatGrid 100 40
  raises "$name" FlatGrid "RowColChange 1 1" 13
  point_away
  picture "$name-used"
}

# control_host NAME LIBRARY CLASS
control_host() {
  take_own_pictures || return
  start "$1" wine "$(client_of control_host)" "$2" "$3" "$(windows_path "$scene")"
  try_controls "$1" || return
  xdotool key alt+F4
  ends "$1"
}
test_TheControlHostOfAtl100ShowsTheControls() { control_host atl100 atl100.dll AtlAxWin100; }
test_TheControlHostOfAtlShowsTheControls() { control_host atl atl.dll AtlAxWin; }
test_TheControlHostShowsTheControlsInWindowsOfAnotherClass() { control_host static atl100.dll Static; }

# --- Pascal ----------------------------------------------------------------------------------------------

[[ $bits == 64 ]] || return 0

test_APascalProgramKnowsTheControlsByName() { run pascal wine "$programs/late_binding.exe"; }

test_AFormOfLazarusShowsSavesAndLoadsTheControls() {
  take_own_pictures || return
  start lazarus wine "$programs/form.exe" "$(windows_path "$scene")" "$(windows_path "$folder/form.lfm")"
  try_controls lazarus || return
  xdotool key alt+F4
  becomes 2 "that the controls are shown when they were loaded" said lazarus shown || return
  point_away
  picture lazarus-loaded
  xdotool key alt+F4
  ends lazarus
}

# import_library FOLDER [container]: the unit of the type library, made under Wine
import_library() {
  local unit
  mkdir -p "$folder/$1"
  unit=$(timeout 60 wine "$programs/import_library.exe" "$(windows_path "$component")" "$(windows_path "$folder/$1")" "${@:2}" \
    </dev/null 2>&1 | tr -d '\r')
  [[ $unit == LevelWidgets_1_0_TLB ]] || { complain "expected the unit LevelWidgets_1_0_TLB, is: $unit" && return 1; }
}

test_APascalProgramKnowsTheControlsByTheirTypeLibrary() {
  import_library import || return
  compile_pascal imported.pas "-FU$folder/import" "-Fu$folder/import" || { complain "it does not compile" && return; }
  run imported wine "$programs/imported.exe"
}

test_AFormOfLazarusKnowsTheControlsByTheirTypeLibrary() {
  import_library import_form container || return
  compile_pascal imported_form.lpr "-FU$folder/import_form" "-Fu$folder/import_form" || { complain "it does not compile" && return; }
  start imported_form wine "$programs/imported_form.exe"
  becomes 1 "that the form is shown" said imported_form shown || return
  click imported_form FlatTextBox
  xdotool key a key b
  becomes 1 "the key in the text box" said imported_form "event KeyPress 98"
  click imported_form FlatGrid 20 24
  xdotool sleep 0.3 click 1 sleep 0.3 type nut
  picture imported_form
  xdotool key Return
  becomes 1 "the text of the cell" said imported_form "event BeforeCellEdit 1 1 nut"
  point_away
  xdotool key alt+F4
  ends imported_form
}
