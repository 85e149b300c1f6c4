# shellcheck shell=bash
# Compiles Pascal programs for 64-bit Windows, with the run-time library and Lazarus's forms from their Debian sources. Sourced
# with the root of the repository as working directory. A first time takes about 20 seconds; after that only what has changed is
# compiled.

pascal_units=$PWD/build/components/pascal
pascal_log=$PWD/build/components/pascal.log

# Folders of the sources, where programs find units and what they include. Of each source only one version is installed.
pascal_folders() {
  local package folder packages=(/usr/share/fpcsrc/*/packages) forms=(/usr/lib/lazarus/*)
  for package in chm fcl-base fcl-image fcl-json fcl-process fcl-registry fcl-res fcl-xml hash paszlib pasjpeg regexpr rtl-extra \
    rtl-generics rtl-objpas rtl-unicode winunits-base; do
    for folder in "${packages[0]}/$package"/src{,/win,/winall,/inc,/common}; do
      [[ ! -d $folder ]] || printf '%s\n' "-Fu$folder" "-Fi$folder"
    done
  done
  for folder in lcl{,/forms,/widgetset,/include,/interfaces,/interfaces/win32} components/{lazutils,activex}; do
    printf '%s\n' "-Fu${forms[0]}/$folder" "-Fi${forms[0]}/$folder"
  done
}

pascal() { ppcx64 -n -Twin64 -Px86_64 -O1 -Xs -v0e "-FU$pascal_units" "-Fu$pascal_units" "$@" >>"$pascal_log" 2>&1; }

# The units that all others need; the compiler finds the rest by itself.
build_pascal_rtl() {
  local folder folders=() rtl=(/usr/share/fpcsrc/*/rtl)
  [[ ! -e $pascal_units/buildrtl.ppu ]] || return 0
  for folder in win64 inc x86_64 common win win/wininc objpas charmaps; do
    folders+=("-Fi${rtl[0]}/$folder" "-Fu${rtl[0]}/$folder")
  done
  folders+=("-Fi${rtl[0]}/objpas/sysutils" "-Fi${rtl[0]}/objpas/classes")
  pascal "${folders[@]}" -Us -Sg "${rtl[0]}/win64/system.pp" && pascal "${folders[@]}" "${rtl[0]}/win64/buildrtl.pp"
}

# compile_pascal PROGRAM [OPTION...]: one of tools/components/pascal; it is in build/components/bin then
compile_pascal() {
  local program=$1 folders
  shift
  mkdir -p "$pascal_units" build/components/bin
  : >"$pascal_log"
  mapfile -t folders < <(pascal_folders)
  if build_pascal_rtl && pascal -MObjFPC -Scghi -dLCL -dLCLwin32 "${folders[@]}" -Futools/components/pascal -FEbuild/components/bin \
    "$@" "tools/components/pascal/$program"; then
    return
  fi
  grep -E 'Error|Fatal' "$pascal_log" | head -n 20 >&2
  echo "$program: the Pascal compiler failed (whole log: $pascal_log)" >&2
  return 1
}
