#!/usr/bin/env bash
# The program mkdict as a user meets it: exit statuses, what stands on which stream, what an interrupt leaves.
# Usage: mkdict-test.sh MKDICT
set -uo pipefail
mkdict=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

fail() {
  failures=$((failures + 1))
  printf 'FAILED: %s\n  out: %s\n  err: %s\n' "$1" "$(head -c 400 "$work/out")" "$(head -c 400 "$work/err")"
}

# expect NAME STATUS OUT ERR COMMAND...: OUT and ERR are patterns of the whole text.
expect() {
  local name=$1 status=$2 out=$3 err=$4 got
  shift 4
  "$@" >"$work/out" 2>"$work/err" </dev/null
  got=$?
  [ "$got" = "$status" ] && [[ "$(cat "$work/out")" == $out ]] && [[ "$(cat "$work/err")" == $err ]] ||
    fail "$name (status $got, expected $status)"
}

# Small sources: one English word, and Japanese words as many as asked for (あ /(n) gloss N/, in EUC-JP).
mkdir "$work/wordnet"
for part in noun verb adj adv; do : >"$work/wordnet/data.$part"; : >"$work/wordnet/$part.exc"; done
: >"$work/wordnet/cntlist.rev"
printf '02084071 05 n 01 dog 0 000 | a member of the genus Canis  \n' >"$work/wordnet/data.noun"
printf 'dog <n>\n犬\n' >"$work/dict"
printf 'dog\tA\tM\n' >"$work/index"
edict() {
  awk -v n="$1" 'BEGIN { for (i = 1; i <= n; i++) {
    printf "\244\242%c%c /(n) gloss %d/\n", 164, 161 + i % 80, i } }' | LC_ALL=C cat
}
LC_ALL=C edict 3 >"$work/edict"
sources=(--edict "$work/edict" --freedict-index "$work/index" --freedict-dict "$work/dict" --wordnet "$work/wordnet")

expect 'help is no error' 0 '*Examples:*Exit status:*' '' "$mkdict" --help
expect 'version' 0 'mkdict *' '' "$mkdict" --version
expect 'no target' 2 '' '*OUTDIR*' "$mkdict"
expect 'unknown option' 2 '' '*--bogus*' "$mkdict" --bogus "$work/set"
expect 'a build' 0 "*3  Japanese entries
*Written to $work/set" '' "$mkdict" "${sources[@]}" "$work/set"
[ "$(ls "$work/set" | wc -l)" = 14 ] || fail 'fourteen files'
expect 'a quiet build over it' 0 '' '' "$mkdict" -q "${sources[@]}" "$work/set"
expect 'an account for programs' 0 '{"schema":1,"status":"built",*}' '' "$mkdict" --json "${sources[@]}" "$work/set"
expect 'progress for programs' 0 '*' '{"event":"progress",*}' "$mkdict" --progress json "${sources[@]}" "$work/set"
expect 'a sound set' 0 "*$work/set is sound." '' "$mkdict" --verify "$work/set"
expect 'a missing source' 3 '' "mkdict: $work/none is missing
Install the Debian package edict, or name the place with --edict." \
  "$mkdict" "${sources[@]}" --edict "$work/none" "$work/other"
expect 'no such set' 3 '' 'mkdict: * is no folder*' "$mkdict" --verify "$work/none"
expect 'a foreign folder' 3 '' '*holds something else than a dictionary*' "$mkdict" "${sources[@]}" "$work"
printf 'no dictionary\n' >"$work/noedict"
expect 'a damaged source' 5 '' '*noedict is no EDICT file*' "$mkdict" "${sources[@]}" --edict "$work/noedict" "$work/other"
printf x >>"$work/set/ej.ix3"
expect 'a damaged set' 5 'ej.ix3 at 0: 1 bytes that no row leads to' 'mkdict: 1 fault in *' "$mkdict" --verify "$work/set"
expect 'a damaged set for programs' 5 '{"schema":1,"status":"damaged",*"fault_count":1,*}' '*' \
  "$mkdict" --json --verify "$work/set"

# An interrupt in the middle of a long read leaves the old set and nothing beside it.
LC_ALL=C edict 400000 >"$work/long"
cp -r "$work/set" "$work/before"
mkdir "$work/place"
mv "$work/set" "$work/place/set"
for signal in INT TERM; do
  : >"$work/err"
  # A background job of a script ignores SIGINT unless job control is on.
  set -m
  "$mkdict" --progress json "${sources[@]}" --edict "$work/long" "$work/place/set" >"$work/out" 2>"$work/err" &
  child=$!
  set +m
  for _ in $(seq 500); do
    grep -q 'reading EDICT' "$work/err" && break
    sleep 0.01
  done
  kill -s "$signal" "$child"
  wait "$child"
  got=$?
  [ "$got" = 130 ] || fail "$signal ends with 130 (got $got)"
  [ "$(ls "$work/place")" = set ] || fail "$signal leaves nothing beside the set"
  diff -r "$work/before" "$work/place/set" >"$work/out" || fail "$signal leaves the old set"
done

[ "$failures" = 0 ] && echo "all passed"
exit "$((failures > 0))"
