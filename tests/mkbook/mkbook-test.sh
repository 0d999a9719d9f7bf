#!/usr/bin/env bash
# The program mkbook as a user meets it: exit statuses, what stands on which stream, what an interrupt leaves.
# Usage: mkbook-test.sh MKBOOK
set -uo pipefail
mkbook=$1
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

# Small sources: a dictionary of one word, and Japanese words as many as asked for, in EUC-JP.
printf 'dog\n   犬\n' >"$work/d.dict"
printf 'dog\tA\tL\n' >"$work/d.index"
printf '0041:%032d\n' 0 >"$work/font.hex"
edict() {
  LC_ALL=C awk -v n="$1" 'BEGIN { for (i = 1; i <= n; i++) {
    printf "\244\242%c%c /(n) gloss %d/\n", 164, 161 + i % 80, i } }'
}
edict 3 >"$work/edict"
font=(--unifont "$work/font.hex")

expect 'help is no error' 0 '*Examples:*Exit status:*' '' "$mkbook" --help
expect 'version' 0 'mkbook *' '' "$mkbook" --version
expect 'nothing' 2 '' '*FORM*' "$mkbook"
expect 'no folder' 2 '' '*OUTDIR*' "$mkbook" dictd "$work/d.index"
expect 'another form' 2 '' '*FORM*' "$mkbook" other "$work/d.index" "$work/book"
expect 'unknown option' 2 '' '*--bogus*' "$mkbook" --bogus dictd "$work/d.index" "$work/book"
expect 'a book' 0 "*1  entries
*Written to $work/book" '' "$mkbook" "${font[@]}" dictd "$work/d.index" "$work/book"
expect 'a quiet book over it' 0 '' '' "$mkbook" -q "${font[@]}" dictd "$work/d.index" "$work/book"
expect 'an account for programs' 0 '{"schema":1,"status":"built",*}' '' \
  "$mkbook" --json "${font[@]}" dictd "$work/d.index" "$work/book"
expect 'progress for programs' 0 '*' '{"event":"progress",*}' \
  "$mkbook" --progress json "${font[@]}" dictd "$work/d.index" "$work/book"
expect 'a book like its source' 0 "*$work/book holds what its source says." '' \
  "$mkbook" --verify dictd "$work/d.index" "$work/book"
expect 'Japanese words' 0 '*3  entries*' '' "$mkbook" "${font[@]}" edict "$work/edict" "$work/japanese"
expect 'a book of another source' 5 'entry 0: *' 'mkbook: * in *' \
  "$mkbook" --verify edict "$work/edict" "$work/book"
expect 'the same for programs' 5 '{"schema":1,"status":"damaged",*"fault_count":*}' '*' \
  "$mkbook" --json --verify edict "$work/edict" "$work/book"
printf '@book T\n@entry dog\n{*a*} {>cat}\n' >"$work/book.txt"
expect 'a hand-made book' 0 '*written as plain text: cat (line 3)*' '' "$mkbook" "${font[@]}" text "$work/book.txt" "$work/own"
expect 'a hand-made book like its source' 0 '*holds what its source says.' '' \
  "$mkbook" --verify text "$work/book.txt" "$work/own"
printf '@book T\n@entry dog\n  {*a\n}\n' >"$work/wrong.txt"
expect 'errors in a hand-made book' 5 '' "mkbook: 2 errors in $work/wrong.txt
$work/wrong.txt:3:3: a { without its }. For the sign itself write \\\\{
$work/wrong.txt:4:1: a } without its {. For the sign itself write \\\\}
The form is described in mkbook-text(5)." "$mkbook" "${font[@]}" text "$work/wrong.txt" "$work/other"
expect 'a missing source' 3 '' "mkbook: $work/none.index is missing
Name the index of a dictionary in dictd form, such as /usr/share/dictd/wn.index." \
  "$mkbook" "${font[@]}" dictd "$work/none.index" "$work/other"
expect 'a missing font' 3 '' "mkbook: $work/none.hex is missing or can't be read
Install the Debian package unifont, or name the place with --unifont." \
  "$mkbook" --unifont "$work/none.hex" dictd "$work/d.index" "$work/other"
expect 'no such book' 3 '' 'mkbook: * is no book that can be opened*' "$mkbook" --verify dictd "$work/d.index" "$work/none"
expect 'a foreign folder' 3 '' '*holds something else than a book*' "$mkbook" "${font[@]}" dictd "$work/d.index" "$work"
expect 'a damaged source' 5 '' '*d.dict is no EDICT file*' "$mkbook" "${font[@]}" edict "$work/d.dict" "$work/other"
expect 'a place that takes no folder' 3 '' "*can't be made*" "$mkbook" "${font[@]}" dictd "$work/d.index" /proc/nowhere/book
[ -e "$work/other" ] && fail 'failures leave no book'

# Nobody may take a cut account for a whole one.
"$mkbook" "${font[@]}" dictd "$work/d.index" "$work/told" >/dev/full 2>"$work/err"
[ $? = 3 ] || fail 'an account that cannot be written ends with 3'
[[ "$(cat "$work/err")" == "mkbook: the output can't be written"* ]] || fail 'and says so'
[ -e "$work/told/BOOK.CAT" ] || fail 'the book is there all the same'

# A file that may not grow as large as it must is a full disk.
(ulimit -f 1; exec "$mkbook" "${font[@]}" edict "$work/edict" "$work/limited") >"$work/out" 2>"$work/err"
[ $? = 3 ] || fail 'a limit of file sizes ends with 3'
[ -z "$(ls -d "$work"/limited* 2>/dev/null)" ] || fail 'and leaves nothing'

# An interrupt in the middle leaves the old book and nothing beside it.
edict 300000 >"$work/long"
mkdir "$work/place"
mv "$work/book" "$work/place/book"
cp -r "$work/place/book" "$work/before"
for signal in INT TERM; do
  : >"$work/err"
  # A background job of a script ignores SIGINT unless job control is on.
  set -m
  "$mkbook" --progress json "${font[@]}" edict "$work/long" "$work/place/book" >"$work/out" 2>"$work/err" &
  child=$!
  set +m
  for _ in $(seq 2000); do
    grep -q 'laying out' "$work/err" && break
    sleep 0.01
  done
  kill -s "$signal" "$child"
  wait "$child"
  got=$?
  [ "$got" = 130 ] || fail "$signal ends with 130 (got $got)"
  [ "$(ls "$work/place")" = book ] || fail "$signal leaves nothing beside the book"
  diff -r "$work/before" "$work/place/book" >"$work/out" || fail "$signal leaves the old book"
done

[ "$failures" = 0 ] && echo "all passed"
exit "$((failures > 0))"
