#!/usr/bin/env bash
# The include check itself: a house with one arrow up must fail, and name it.
set -euo pipefail
checker=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir -p "$folder/src/foundation" "$folder/src/engine"
echo '#include "foundation/Storage.h"' >"$folder/src/engine/A.h"
"$checker" "$folder" >/dev/null || { echo "a downward include was refused"; exit 1; }
echo '#include "engine/A.h"' >"$folder/src/foundation/B.h"
if output=$("$checker" "$folder"); then
  echo "an upward include passed"
  exit 1
fi
grep -q 'src/foundation/B.h:1: src/foundation may not include src/engine' <<<"$output" || {
  echo "the upward include was not named: $output"
  exit 1
}
