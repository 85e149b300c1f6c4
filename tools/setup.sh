# shellcheck shell=bash disable=SC2034
# What ./run, ./test and tools/check share. Sourced with the root of the repository as working directory.

fail() {
  echo "$*" >&2
  exit 1
}

# package | a command or file that shows it is there | what it is for
build_packages='
g++                  | g++                                 | the C++ compiler
cmake                | cmake                               | describes the build
ninja-build          | ninja                               | runs the build
pkg-config           | pkg-config                          | finds the libraries
libfreetype-dev      | /usr/include/freetype2/ft2build.h   | text on the memory desktop
libfontconfig-dev    | /usr/include/fontconfig             | finds the fonts
libpng-dev           | /usr/include/png.h                  | pictures
libsdl2-dev          | /usr/include/SDL2/SDL.h             | native windows
liblua5.4-dev        | /usr/include/lua5.4/lua.h           | form scripts
libtomlplusplus-dev  | /usr/include/toml++/toml.h          | form files
libcli11-dev         | /usr/include/CLI/CLI.hpp            | the command line
nlohmann-json3-dev   | /usr/include/nlohmann/json.hpp      | the machine-readable description of the controls
fontconfig           | fc-match                            | the font configuration
fonts-wine           | /usr/share/wine/fonts/tahoma.ttf    | the font of the forms and the arrow symbols'

testing_packages='
libgtest-dev         | /usr/include/gtest/gtest.h          | the test framework
libgmock-dev         | /usr/include/gmock/gmock.h          | the matchers of the tests'

test_packages=$testing_packages'
xvfb                 | Xvfb                                | the screen that native windows are tested on
openbox              | openbox                             | the window manager there
xdotool              | xdotool                             | the mouse and the keyboard there
libxcb1-dev          | /usr/include/xcb/xcb.h              | reads the pixels there
x11-utils            | xprop                               | reads the titles of the windows there
python3-jsonschema   | /usr/lib/python3/dist-packages/jsonschema | checks forms by their schema
clang-format         | clang-format                        | checks the layout of the sources
clang                | clang++                             | the other compiler: its sanitizers, and the examples by it
libclang-rt-14-dev   | /usr/lib/llvm-14/lib/clang/14.0.6/lib/linux/libclang_rt.asan-x86_64.a | the sanitizers'

package_packages='
file                 | file                                | recognises programs among the files of Debian packages
dpkg-dev             | dpkg-shlibdeps                      | finds the packages that the program needs'

fuzz_packages='
clang                | clang++                             | the compiler with the fuzzer
libclang-rt-14-dev   | /usr/lib/llvm-14/lib/clang/14.0.6/lib/linux/libclang_rt.fuzzer-x86_64.a | the fuzzer'

docs_packages='
imagemagick          | compare                             | tells which pictures of the documentation have changed'

windows_build_packages='
g++-mingw-w64-x86-64-posix | x86_64-w64-mingw32-g++-posix   | the compiler for Windows
googletest           | /usr/src/googletest/CMakeLists.txt  | the test framework, compiled for Windows
lld                  | ld.lld                              | links the test program for Windows in a second
mingw-w64-tools      | x86_64-w64-mingw32-widl             | compiles the type library of the components
libwine-dev          | /usr/include/wine/wine/windows/oaidl.idl | the interfaces of the system that it names
dpkg-dev             | dpkg-source                         | unpacks the sources of Lua'

windows_x86_packages='
g++-mingw-w64-i686-posix | i686-w64-mingw32-g++-posix         | the compiler for 32-bit Windows'

windows_packages=$windows_build_packages'
wine                 | wine                                | runs the Windows tests
wine64               | /usr/lib/wine/wine64                | runs the Windows tests
xvfb                 | Xvfb                                | the display they run on
xdotool              | xdotool                             | clicks in the windows shown there
imagemagick          | import                              | takes pictures of them'

component_packages='
fp-compiler          | ppcx64                              | the Pascal compiler of clients of the components
fpc-source           | /usr/share/fpcsrc                   | what it compiles their run-time library of
lazarus-src          | /usr/lib/lazarus                    | the forms of a client'

component_32_packages='
g++-mingw-w64-i686-posix | i686-w64-mingw32-g++-posix      | the compiler for 32-bit Windows
debootstrap          | debootstrap                         | fetches a 32-bit Wine
libc6-i386           | /lib/ld-linux.so.2                  | starts it'

is_there() {
  if [[ $1 == /* ]]; then [[ -e $1 ]]; else command -v "$1" >/dev/null; fi
}

# Prints "package  what it is for" of each package of a table that is not there.
missing_of() {
  local package probe reason
  while IFS='|' read -r package probe reason; do
    read -r probe <<<"$probe"
    if [[ -n $package ]] && ! is_there "$probe"; then echo "$package $reason"; fi
  done <<<"$1"
}

# need TABLE: installs what is missing of it; no package command runs when nothing is.
need() {
  local missing
  missing=$(missing_of "$1")
  [[ -n $missing ]] || return 0
  command -v apt-get >/dev/null || fail "These are missing, under their Debian names:"$'\n'"$missing"

  local -a as_root=() packages
  if [[ $EUID -ne 0 ]]; then
    command -v sudo >/dev/null || fail "Neither root nor sudo to install what is missing:"$'\n'"$missing"
    as_root=(sudo)
  fi
  echo "Installing these Debian packages (log: build/packages.log):"
  echo "$missing"
  mapfile -t packages < <(awk '{ print $1 }' <<<"$missing")
  mkdir -p build
  if ! { "${as_root[@]}" apt-get update &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y --no-install-recommends "${packages[@]}"; } </dev/null >build/packages.log 2>&1; then
    tail -n 20 build/packages.log >&2
    fail "The packages could not be installed."
  fi
  missing=$(missing_of "$1")
  [[ -z $missing ]] || fail "Still missing after their installation:"$'\n'"$missing"
}

# need_source PACKAGE: its sources, with Debian's patches, in build/sources/PACKAGE: for what is compiled for
# Windows too. They come from where the machine's own packages come from, by lists kept apart from the machine's.
need_source() {
  local package=$1 sources=$PWD/build/sources log=build/sources/$1.log
  [[ -e $sources/$package ]] && return
  command -v apt-get >/dev/null ||
    fail "Without apt-get the sources of $package do not come by themselves; unpack them in build/sources/$package."
  echo "Fetching the sources of $package (log: $log)"
  rm -rf "$sources/lists" "$sources/unpacked"
  mkdir -p "$sources/lists/partial" "$sources/lists/from" "$sources/cache/archives/partial" "$sources/unpacked"
  if ! unpack_source "$package" >"$log" 2>&1 </dev/null; then
    tail -n 20 "$log" >&2
    fail "The sources of $package could not be fetched."
  fi
  mv "$sources/unpacked/$package"-*/ "$sources/$package"
  rm -rf "$sources/lists" "$sources/unpacked" "$sources/cache"
}

unpack_source() (
  local file
  for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    [[ ! -f $file ]] || sed -nE 's/^deb([[:space:]])/deb-src\1/p' "$file" >"$sources/lists/from/${file##*/}"
  done
  mv "$sources/lists/from/sources.list" "$sources/lists/from/main.list" 2>/dev/null || true
  for file in /etc/apt/sources.list.d/*.sources; do
    [[ ! -f $file ]] || sed -E 's/^Types:.*/Types: deb-src/' "$file" >"$sources/lists/from/${file##*/}"
  done
  local -a options=(-o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$sources/lists/from"
    -o Dir::State::Lists="$sources/lists" -o Dir::Cache="$sources/cache" -o APT::Sandbox::User="$(id -un)")
  apt-get "${options[@]}" update && cd "$sources/unpacked" && apt-get "${options[@]}" source "$package"
)

# Whether build/PRESET was configured here, and after the last change of the presets.
is_configured() {
  [[ build/$1/build.ninja -nt CMakePresets.json ]] &&
    grep -qsxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "build/$1/CMakeCache.txt"
}

# build PRESET TARGET...: quiet when it works; when it does not, prints its first errors and returns 1. Tests that run beside it
# go first: those on Windows wait for each other's processes all the time, and use little of the processor.
build() {
  local preset=$1 log=build/$1.log
  shift
  mkdir -p build
  if ! { is_configured "$preset" || cmake --fresh --preset "$preset"; } >"$log" 2>&1 ||
    ! nice ninja -C "build/$preset" -j "$(nproc)" "$@" >>"$log" 2>&1; then
    sed -n '/^FAILED:\|^CMake Error\|^ninja: error/,$p' "$log" | head -n 60 >&2
    echo "$preset: the build failed (whole log: $log)" >&2
    return 1
  fi
}

# configure PRESET: writes what CMake writes, and nothing where that is up to date.
configure() { build "$1" build.ninja; }
