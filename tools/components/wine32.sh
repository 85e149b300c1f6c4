# shellcheck shell=bash
# Runs 32-bit Windows programs on a machine whose packages are 64-bit ones. Sourced with the root of the repository as working
# directory.

wine32_tree=$PWD/build/components/i386

# Fetches a small 32-bit Debian with Wine from where the machine's own packages come from: two minutes, 1.1 GB.
make_wine32_tree() {
  local site release log=build/components/i386.log
  [[ ! -e $wine32_tree/usr/lib/wine/wine ]] || return 0
  # shellcheck disable=SC2016
  read -r site release < <(apt-get indextargets --format '$(SITE) $(RELEASE)' 'Created-By: Packages' 'Component: main' | sort -u |
    head -n 1)
  [[ -n $site ]] || fail "Without apt-get the 32-bit packages do not come by themselves."
  echo "Fetching a 32-bit Debian with Wine into build/components/i386 (log: $log)"
  rm -rf "$wine32_tree.new"
  debootstrap --variant=minbase --arch=i386 --include=wine32 "$release" "$wine32_tree.new" "$site" >"$log" 2>&1 ||
    { tail -n 5 "$log" >&2 && fail "The 32-bit packages could not be fetched."; }
  mv "$wine32_tree.new" "$wine32_tree"
}

# Prints a folder whose programs wine and wineserver are the 32-bit ones.
wine32_commands() {
  local folder=$PWD/build/components/wine32 name program libraries
  libraries=$wine32_tree/lib/i386-linux-gnu:$wine32_tree/usr/lib/i386-linux-gnu
  mkdir -p "$folder"
  for name in wine wineserver; do
    program=$wine32_tree/usr/lib/wine/$name
    [[ $name == wine ]] || program+=32
    cat >"$folder/$name" <<END_OF_COMMAND
#!/bin/sh
export LD_LIBRARY_PATH='$libraries' WINEDLLPATH='$wine32_tree/usr/lib/i386-linux-gnu/wine' WINEARCH=win32
export WINELOADER='$wine32_tree/usr/lib/wine/wine' WINESERVER='$wine32_tree/usr/lib/wine/wineserver32'
exec '$program' "\$@"
END_OF_COMMAND
    chmod +x "$folder/$name"
  done
  echo "$folder"
}
