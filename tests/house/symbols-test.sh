#!/usr/bin/env bash
# Compares the library's exported symbols with the list that is checked in: a symbol that comes or goes is
# a decision. C functions are listed by name, C++ classes by class.
# Usage: symbols-test.sh LIBRARY LIST
set -euo pipefail
library=$1 list=$2
found=$(mktemp)
trap 'rm -f "$found"' EXIT
nm -D --defined-only "$library" | awk '{print $NF}' | c++filt |
  sed -E 's/^(vtable|typeinfo|typeinfo name|VTT) for //; s/^(non-)?virtual thunk to //' |
  grep -vE '^(std::|__gnu_cxx|operator |[a-z ]+ std::|_ZNSt|guard variable|__(a|ub)san|_init$|_fini$)' |
  sed -E 's/\(.*//; s/^(zavel::[A-Za-z0-9_]+)::.*/\1/' | sort -u >"$found"
if ! diff -u "$list" "$found"; then
  echo "The exported symbols differ from $list: + is new, - is gone."
  exit 1
fi
