# Reads "file:line:#include ..." lines of the library's sources and prints those that point upward in the
# folder picture of docs/architecture.md. Ends with 1 when there is one.
BEGIN {
  # Each folder may include itself and these; a folder's name does not stand for those inside it.
  allowed["platform"] = ""
  allowed["platform/memory"] = allowed["platform/win32"] = allowed["platform/tracing"] = "platform"
  allowed["native"] = "platform platform/memory platform/win32"
  allowed["frame"] = "platform"
  allowed["controls"] = "platform frame"
  allowed["pages"] = "platform frame controls"
  allowed["host"] = "platform platform/memory platform/win32 platform/tracing frame controls pages"
  allowed["presenter"] = "platform platform/memory"
  allowed["testing"] = allowed["host"] " host"
  # What a test may include besides.
  for_tests = "testing platform/memory platform/win32 platform/tracing"

  # In the order in which they build on each other.
  count = split("button label scroll tabstrip textbox dropdown calculator calendar grid", names, " ")
  for (i = 1; i <= count; ++i) place[names[i]] = i
}

function Folder(path) {
  sub(/^levelwidgets\//, "", path)
  return match(path, /^platform\/(memory|win32|tracing)\//) ? substr(path, 1, RLENGTH - 1) : \
         substr(path, 1, index(path, "/") - 1)
}

function Control(path) {
  split(path, steps, "/")
  return steps[3]
}

function Has(list, word) { return index(" " list " ", " " word " ") > 0 }

# A control's public classes have headers of their own.
function IsPublic(path) { return path ~ /\/(flat|ksx)_[a-z_]*\.h$/ && path !~ /_(layout|paint|parts)\.h$/ }

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
  from = Folder(file)
  to = Folder(target)
  is_test = file ~ /_((test|fuzz)\.cpp|fixture\.h)$/
  if (from == "controls" && to == "controls" && Control(file) != Control(target)) {
    if (!IsPublic(target)) Refuse("a private header of another control")
    else if (place[Control(target)] > place[Control(file)]) Refuse("upward")
  } else if (from != to && !Has(allowed[from], to) && !(is_test && Has(for_tests, to))) {
    Refuse("upward")
  }
}

END { exit refused }
