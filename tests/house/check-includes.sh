#!/usr/bin/env bash
# Fails when an include points up the house: a folder may include only the folders named for it here.
# docs/architecture.md tells why each may. Usage: check-includes.sh SOURCE_ROOT
set -euo pipefail
cd "${1:?usage: check-includes.sh SOURCE_ROOT}"

declare -A may=(
  [foundation]=""
  [platform]="foundation"
  [ui]="platform foundation"
  [engine]="foundation"
  [book]="foundation"
  [config]="platform foundation"
  [lookup]="engine config platform foundation"
  [present]="book config ui platform foundation"
  [translate]="config ui platform foundation"
  [research]="translate present config ui platform foundation"
  [feed]="translate research config ui platform foundation"
  [prefs]="feed config ui platform foundation"
  [shell]="prefs feed research translate present lookup config book engine ui platform foundation"
)
rooms=$(IFS='|'; echo "${!may[*]}")
status=0
checked=0
for room in "${!may[@]}"; do
  [ -d "src/$room" ] || continue
  while IFS=: read -r file line include; do
    checked=$((checked + 1))
    target=$(sed -E 's/.*[<"]([^">]+)[">].*/\1/' <<<"$include")
    folder=${target%%/*}
    if [[ "$include" == *'"'* && "$target" != */* ]]; then
      echo "$file:$line: include \"$target\" must name its folder"
      status=1
    elif [[ "$target" == base/* || "$target" == loop/* || "$target" == desktop/* || "$target" == zavel/* || "$target" == mkdict/* || "$target" == mkbook/* ]]; then
      echo "$file:$line: src/$room may not include the port or a host: $target"
      status=1
    elif [[ "$folder" =~ ^($rooms)$ && "$folder" != "$room" && " ${may[$room]} " != *" $folder "* ]]; then
      echo "$file:$line: src/$room may not include src/$folder: $target"
      status=1
    fi
  done < <(grep -rnE '^[[:space:]]*#[[:space:]]*include' "src/$room" --include='*.h' --include='*.cpp' || true)
done
if [ "$checked" -eq 0 ]; then
  echo "no include found below src: wrong folder?"
  exit 1
fi
[ "$status" -eq 0 ] && echo "$checked includes, all of them point down"
exit "$status"
