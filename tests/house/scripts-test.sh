#!/usr/bin/env bash
# Every shell script of the project can be read to its end: a line that is seldom reached hides a quote that is
# never closed. Usage: scripts-test.sh PROJECT-FOLDER
set -uo pipefail
cd "$1" || exit 2
checked=0
failed=0
while IFS= read -r -d '' script; do
  head -n 1 "$script" | grep -q '^#!.*\(bash\|sh\)$' || continue
  checked=$((checked + 1))
  bash -n "$script" || failed=$((failed + 1))
done < <(find .ci scripts bench tests data -type f -print0)
echo "$checked scripts read, $failed with errors"
[ "$checked" -ge 8 ] && [ "$failed" -eq 0 ]
