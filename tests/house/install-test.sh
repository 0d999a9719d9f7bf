#!/usr/bin/env bash
# Installs the built tree, moves it, and builds a host in C and one in C++ against it, by CMake and by
# pkg-config. Usage: install-test.sh BUILD_FOLDER SOURCE_ROOT DICTIONARY_FOLDER CC CXX [FLAGS]
set -euo pipefail
build=$1 source=$2 dictionary=$3 cc=$4 cxx=$5 flags=${6-}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

cmake --install "$build" --prefix "$folder/first" >"$folder/install.log" || { cat "$folder/install.log"; exit 1; }
mv "$folder/first" "$folder/moved"
tree=$folder/moved

cp -r "$source/tests/house/hosts" "$folder/hosts"
cmake -S "$folder/hosts" -B "$folder/build" -DCMAKE_PREFIX_PATH="$tree" -DCMAKE_C_FLAGS="$flags" \
  -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx" >"$folder/cmake.log" 2>&1 &&
  cmake --build "$folder/build" >>"$folder/cmake.log" 2>&1 || { cat "$folder/cmake.log"; exit 1; }

pc=$(dirname "$(find "$tree" -name zavellex.pc)")
lib=$(dirname "$pc")
export PKG_CONFIG_PATH=$pc LD_LIBRARY_PATH=$lib
# shellcheck disable=SC2046
"$cc" $flags "$folder/hosts/host.c" $(pkg-config --cflags --libs zavellex) -o "$folder/pc-c"
# shellcheck disable=SC2046
"$cxx" -std=c++20 $flags "$folder/hosts/host.cpp" $(pkg-config --cflags --libs zavellex) -o "$folder/pc-cpp"

# goes: six bytes and a record head of three for each form of go; what matters is that it is found at all.
for host in "$folder/build/host-c" "$folder/pc-c"; do
  size=$("$host" "$dictionary/" goes) || { echo "$host failed"; exit 1; }
  [ "$size" -gt 0 ] || { echo "$host found nothing"; exit 1; }
done
for host in "$folder/build/host-cpp" "$folder/pc-cpp"; do
  origin=$("$host" "$dictionary/" goes) || { echo "$host failed"; exit 1; }
  [ "$origin" = go ] || { echo "$host: goes leads to \"$origin\", not to go"; exit 1; }
done

# A window of a first start: its tables are written and its rows listed.
mkdir -p "$folder/user/dictionaries"
ln -s "$(realpath "$dictionary")" "$folder/user/dictionaries/basic"
rows=$("$folder/build/host-window" "$folder/user" goes 2>&1) || { echo "host-window failed: $rows"; exit 1; }
[ "$(tail -n 1 <<<"$rows")" = "something is shown" ] || { echo "host-window says: $rows"; exit 1; }
grep -q '^\**go ' <<<"$rows" || { echo "host-window lists no go: $rows"; exit 1; }

# The program of the guide, compiled as it says there, finds the library and tells of a missing dictionary.
awk '/^```cpp/ { text = ""; on = 1; next } /^```/ { if (on && text ~ /int main/) printf "%s", text; on = 0 }
     on { text = text $0 "\n" }' "$source/docs/hosting.md" >"$folder/look.cpp"
rpath=-Wl,-rpath,$(pkg-config --variable=libdir zavellex)
grep -qF -- "-Wl,-rpath,\"\$lib\" -o look" "$source/docs/hosting.md" || { echo "the guide gives no rpath"; exit 1; }
# shellcheck disable=SC2046
"$cxx" -std=c++20 $flags "$folder/look.cpp" $(pkg-config --cflags --libs zavellex) "$rpath" -o "$folder/look"
example() { env -u LD_LIBRARY_PATH "$folder/look" "$@" 2>"$folder/look.log"; }
shown=$(example "$folder/user" goes) || { echo "look of the guide failed: $shown$(cat "$folder/look.log")"; exit 1; }
grep -q '^\**go ' <<<"$shown" || { echo "look of the guide lists no go: $shown"; exit 1; }
[ "$(cat "$folder/look.log")" = "Syle Number=10" ] || { echo "look of the guide logs otherwise"; exit 1; }
status=0; example "$folder/none/q" goes || status=$?
[ "$status" = 1 ] && [ ! -e "$folder/none" ] || { echo "without a dictionary look gives $status"; exit 1; }
[ "$(cat "$folder/look.log")" = "look: there is no dictionary in $folder/none/q" ] || { cat "$folder/look.log"; exit 1; }
mkdir -p "$folder/empty/dictionaries/basic"
status=0; example "$folder/empty" goes >"$folder/look.out" || status=$?
[ "$status" = 4 ] || { echo "with an empty dictionary look gives $status"; exit 1; }

# The library finds modules and texts in the tree that was moved, whatever the current folder is.
services=$(cd / && LC_ALL=ja_JP.UTF-8 "$folder/build/host-services" 2>&1) || { echo "host-services failed"; exit 1; }
[ "$services" = $'alert 図\ntimer 1 child 7' ] || { echo "host-services says: $services"; exit 1; }
