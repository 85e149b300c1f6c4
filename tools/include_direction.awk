# Reads the table of folders that CMake has written (folders.tsv) and then "file:line:#include ..." lines of sources, and
# prints those that include what their folder does not link to. Ends with 1 when there is one.
#
# A folder may include itself and all folders that it builds on, directly or through others; its tests, besides, what
# the tests use, and the folder `testing`, which hides from them what it builds on.
BEGIN { FS = "\t" }

# --- The table -------------------------------------------------------------------------------------------

FNR == NR {
  folder_of[$2] = $1
  name_of[$1] = $2
  depends[$2] = $3
  test_depends[$2] = $4
  public_headers[$2] = $5
  next
}

# Adds `name` and all that it builds on to set[from, ...].
function Add(from, name,    list, count, i) {
  if ((from, name) in set) return
  set[from, name] = 1
  count = split(depends[name], list, " ")
  for (i = 1; i <= count; ++i) Add(from, list[i])
}

function AddAll(from, names,    list, count, i) {
  count = split(names, list, " ")
  for (i = 1; i <= count; ++i) Add(from, list[i])
}

# What the folder `name`, or its tests, may include.
function MayInclude(name, is_test, other,    from) {
  from = name (is_test ? " tests" : "")
  if (!(from in known)) {
    known[from] = 1
    Add(from, name)
    if (is_test) {
      AddAll(from, test_depends[name])
      set[from, "testing"] = 1
    }
  }
  return (from, other) in set
}

# --- Files -----------------------------------------------------------------------------------------------

# The name of the nearest folder of the table that holds the file; "" for none.
function Owner(path) {
  while (sub(/\/[^\/]*$/, "", path)) {
    if (path in name_of) return name_of[path]
  }
  return ""
}

function IsControl(name) { return folder_of[name] ~ /^levelwidgets\/controls\// }

function IsPublic(name, path,    list, count, i) {
  count = split(public_headers[name], list, " ")
  for (i = 1; i <= count; ++i) {
    if (path == folder_of[name] "/" list[i]) return 1
  }
  return 0
}

function Refuse(reason) {
  print file ":" line ": " reason ": " target
  refused = 1
}

{
  split($0, part, ":")
  file = part[1]
  line = part[2]
  target = $0
  sub(/^.*# *include *[<"]/, "", target)
  sub(/[>"].*$/, "", target)
}

$0 ~ /include *"/ { Refuse("not included as <levelwidgets/...>"); next }

{
  from = Owner(file)
  to = Owner(target)
  is_test = file ~ /_((test|fuzz)\.cpp|fixture\.h)$/
  if (from == "" || to == "") {
    Refuse((from == "" ? file : target) " is in no folder of the build")
  } else if (!MayInclude(from, is_test, to)) {
    Refuse(folder_of[from] (is_test ? "'s tests do" : " does") " not build on " folder_of[to])
  } else if (from != to && IsControl(from) && IsControl(to) && !IsPublic(to, target)) {
    Refuse("a private header of another control")
  }
}

END { exit refused }
