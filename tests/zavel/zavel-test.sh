#!/usr/bin/env bash
# The command line as a user meets it: what it prints where, and its exit statuses.
# Usage: zavel-test.sh ZAVEL MKDICT MAKE-DICTIONARY SOURCE-ROOT
set -uo pipefail
zavel=$(realpath "$1") mkdict=$(realpath "$2") make_dictionary=$3 source=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/none"
unset NO_COLOR CLICOLOR_FORCE FORCE_COLOR ZAVEL_LOG XDG_DATA_HOME XDG_CONFIG_HOME XDG_STATE_HOME XDG_CACHE_HOME
export ZAVEL_ROOT=$work/root ZAVEL_MKDICT=$mkdict ZAVEL_EDICT=$work/none HOME=$work/home
failures=0 checks=0

# expect NAME STATUS OUT ERR COMMAND...: OUT and ERR are patterns of the whole text ("" for none).
expect() {
  local name=$1 status=$2 out=$3 err=$4 got
  shift 4
  "$@" >"$work/out" 2>"$work/err" </dev/null
  got=$?
  check "$name" "$got" "$status" "$out" "$err"
}

# The same with INPUT on standard input.
expect_input() {
  local name=$1 status=$2 out=$3 err=$4 input=$5 got
  shift 5
  printf "$input" | "$@" >"$work/out" 2>"$work/err"
  got=$?
  check "$name" "$got" "$status" "$out" "$err"
}

check() {
  local name=$1 got=$2 status=$3 out=$4 err=$5
  checks=$((checks + 1))
  local text errors
  text=$(cat "$work/out") errors=$(cat "$work/err")
  if [ "$got" != "$status" ] || [[ "$text" != $out ]] || [[ "$errors" != $err ]]; then
    failures=$((failures + 1))
    printf 'FAILED: %s\n  status %s, expected %s\n  out: %s\n  err: %s\n' "$name" "$got" "$status" "$text" "$errors"
  fi
}

expect "bare zavel prints a short help" 0 "zavel - English and Japanese dictionary*" "" "$zavel"
expect "--version" 0 "zavel [0-9]*.[0-9]*.[0-9]*" "" "$zavel" --version
expect "--help on top" 0 "zavel - English*" "" "$zavel" --help
expect "help of a command leads with examples" 0 "Examples:*zavel look goes*--json*" "" "$zavel" look --help
expect "help COMMAND is the same" 0 "Examples:*zavel look goes*" "" "$zavel" help look
expect "help of an inner command" 0 "*--if-missing*" "" "$zavel" dict build --help
expect "a wrong command is not run" 2 "" "*there is no command \"loko\"*Did you mean: zavel look" "$zavel" loko
expect "an unknown command" 2 "" "*there is no command \"goes\"*zavel look goes" "$zavel" goes
expect "an unknown flag" 2 "" "*Run: zavel look --help" "$zavel" look --nonsense x
expect "a mode that is none" 2 "" "*--mode*" "$zavel" look --mode none x
expect "list and forms exclude each other" 2 "" "*exclude each other*" "$zavel" look --list --forms x
expect "dict without a command" 2 "" "*Run: zavel dict --help" "$zavel" dict

expect "no dictionary yet" 3 "" "*there is no dictionary in */root/dictionaries/basic yet*zavel dict build" "$zavel" look goes
expect "no dictionary yet, as JSON" 3 '{"schema":1,"status":"error","error":{"code":"no_dictionary",*"hint":"Run: zavel dict build"}}' "*" "$zavel" look --json goes
[ ! -e "$work/root" ] || { echo "FAILED: a look-up without a dictionary left traces"; failures=$((failures + 1)); }
expect "no dictionary to verify" 3 "" "*no dictionary*" "$zavel" dict verify
expect "no dictionary to describe" 3 "" "*no dictionary*" "$zavel" dict info

"$make_dictionary" "$work/root/dictionaries/basic"
expect "an inflected word" 0 "goes: third person singular of go*go² \*\*\**行く*" "" "$zavel" look goes
expect "nothing but text when piped" 0 "church \*\*"$'\n'"*" "" "$zavel" look church
[[ "$(cat "$work/out")" != *$'\x1b'* ]] || { echo "FAILED: escape sequences in a pipe"; failures=$((failures + 1)); }
expect "colours when forced" 0 $'\x1b'"*church*" "" "$zavel" look --color always church
FORCE_COLOR=1 expect "FORCE_COLOR forces" 0 $'\x1b'"*" "" "$zavel" look church
FORCE_COLOR=1 NO_COLOR=1 expect "NO_COLOR wins over forcing" 0 "church*" "" "$zavel" look church
FORCE_COLOR=1 expect "--color never wins over both" 0 "church*" "" "$zavel" look --color never church
expect "kana" 0 "いく 行く*" "" "$zavel" look いく
expect "katakana" 0 "いく 行く*" "" "$zavel" look イク
expect "kanji" 0 "いく 行く*" "" "$zavel" look 行く
expect "the headword list" 0 "\*\*church \[[教]会\]" "" "$zavel" look --list chu
expect "the inflection table" 0 "*went *過去形*going *" "" "$zavel" look --forms went
expect "examples alone" 0 "*go home*家に帰る*" "" "$zavel" look --mode example go
expect "a flag behind the word" 0 "*went*" "" "$zavel" look went --forms
expect "not found" 1 "" "*no entry for \"curch\"*Near headwords: church*" "$zavel" look curch
expect "not found, no suggestions wanted" 1 "" "zavel: no entry for \"curch\"" "$zavel" look --suggest 0 curch
expect "not found, as JSON" 1 '{"schema":1,"query":"curch","status":"not_found","origin":null,"unknown":null,"entries":\[\],"suggestions":\["church"\],"rows":\[\],"dictionaries":\[*"status":"not_found","error":null}\]}' "" "$zavel" look --json curch
expect "one of two found" 0 "*church*" "*no entry for \"zzz\"*" "$zavel" look zzz church
expect "the one word is too long" 2 "" "*too long*" "$zavel" look "$(printf 'a%.0s' {1..256})"
expect "the one word is no text" 2 "" "*not UTF-8*" "$zavel" look $'\xff'
expect "one of two words is no text" 4 "*church*" "*not UTF-8*" "$zavel" look $'\xff' church
expect "the limit" 0 "*1 more entry*" "" "$zavel" look --limit 1 go

expect_input "words on standard input, line n for line n" 0 \
  '{"schema":1,"query":"church",*}'$'\n''{"schema":1,"query":"","status":"not_found",*}'$'\n''{"schema":1,"query":"行く",*}' "" \
  'church\r\n\n行く' "$zavel" look --json
[ "$(wc -l <"$work/out")" = 3 ] || { echo "FAILED: three lines in, three out"; failures=$((failures + 1)); }
expect_input "a lone - reads standard input" 0 "church*" "" 'church\n' "$zavel" look -
expect_input "NUL ends words" 0 '*"query":"church"*'$'\n''*"query":"make"*' "" 'church\0make\0' "$zavel" look --null --json
long=$(printf 'a%.0s' {1..300})
expect_input "an error object in the place of a refused word" 4 \
  '{"schema":1,"status":"error",*too_long*}'$'\n''{"schema":1,"query":"church",*' "" "$long\nchurch\n" "$zavel" look --json

expect "paths" 0 "data *$work/root*cache *$work/root/cache*" "" "$zavel" paths
expect "paths as JSON" 0 "{\"schema\":1,\"data\":\"$work/root\",*}" "" "$zavel" paths --json
expect "about names sources and licences" 0 "*FreeDict*EDICT*WordNet*ENAMDICT*COMPDIC*" "" "$zavel" about
expect "info lists the files" 0 "*ej.dic*ke.idx*together*" "" "$zavel" dict info
[ -f "$work/root/Library/Application Support/Tarnwick/ZavelLex/ZavelPath.plist" ] || { echo "FAILED: no path table was written"; failures=$((failures + 1)); }

# What the host does with damage.
cp -r "$work/root" "$work/whole"
for file in ej.dic ej.ix3 ej.idx hase.ix3 hase.idx katu.dic katu.ix3 katu.idx je.dic je.ix3 je.idx ke.ix3 ke.idx; do
  rm "$work/root/dictionaries/basic/$file"
  expect "the missing $file is named" 5 "" "*lacks the file $file*" "$zavel" look church
  cp "$work/whole/dictionaries/basic/$file" "$work/root/dictionaries/basic/$file"
done
for file in ej.idx hase.idx katu.idx je.idx ke.idx; do
  printf 'xx' >"$work/root/dictionaries/basic/$file"
  expect "a damaged $file" 5 "" "*is damaged*zavel dict verify*" "$zavel" look church
  cp "$work/whole/dictionaries/basic/$file" "$work/root/dictionaries/basic/$file"
done
printf xx >"$work/root/dictionaries/basic/ej.ix3"
expect "a damaged block file" 5 "" "*is damaged where this word stands*" "$zavel" look --suggest 0 church
cp "$work/whole/dictionaries/basic/ej.ix3" "$work/root/dictionaries/basic/ej.ix3"
printf 'not a list' >"$work/root/Library/Application Support/Tarnwick/ZavelLex/ZavelPath.plist"
expect "a damaged path table" 5 "" "*path table*Remove it*" "$zavel" look church
rm "$work/root/Library/Application Support/Tarnwick/ZavelLex/ZavelPath.plist"
expect "a removed path table is written again" 0 "church*" "" "$zavel" look church
expect "neither root nor home" 3 "" "*neither ZAVEL_ROOT nor HOME*" env -u ZAVEL_ROOT -u HOME "$zavel" look church
if [ -e /dev/full ]; then
  "$zavel" look church >/dev/full 2>"$work/err"
  status=$?
  : >"$work/out"
  check "a full disk behind the output" "$status" 3 "" "*can't be written*"
fi
expect "a root without a name" 2 "" "*--root: the folder is missing*" "$zavel" --root "" paths
expect "a relative root in the environment" 3 "" "zavel: ZAVEL_ROOT is not an absolute path: root
Give the whole path, or leave the variable unset." env ZAVEL_ROOT=root "$zavel" look church
expect "a root on the command line overrides it" 0 "church*" "" env ZAVEL_ROOT=root "$zavel" --root "$work/root" look church
expect "an empty root is none" 3 "" "*no dictionary in $work/home/.local/share/zavel/*" env ZAVEL_ROOT= "$zavel" look church
expect "a relative folder of helpers" 3 '{"schema":1,"status":"error","error":{"code":"relative_path",*}}' "*ZAVEL_LIBEXEC*" env ZAVEL_LIBEXEC=here "$zavel" look --json church
(cd "$work" && expect "a relative root on the command line begins in the working folder" 0 "church*" "" "$zavel" --root root look church; [ "$failures" -eq 0 ]) || failures=$((failures + 1))
expect "no compiler" 3 "" "*mkdict*" env ZAVEL_MKDICT=/nowhere/mkdict "$zavel" dict build
expect "build --if-missing does nothing when there is one" 0 "" "" "$zavel" dict build --if-missing

# Every option that a command's help names stands in its manual page and in all completions, and the pages and
# completions name no others.
fail() { echo "FAILED: $*"; failures=$((failures + 1)); }
long_options() { grep -oE -- '--[a-z][a-z-]*' | sort -u; }
page_of() { case "$1" in dict*) echo zavel-dict ;; prefs*) echo zavel-prefs ;; user*) echo zavel-user ;; book*) echo zavel-book ;; *) echo "zavel-$1" ;; esac; }
for command in look "dict build" "dict verify" "dict info" "prefs dict list" "prefs dict enable" "prefs dict disable" "prefs dict move" "user add" "user edit" "user find" "user list" "user delete" "user arrange" "user import" "user export" "book build" "book list" "book info" "book search" "book show" "book next" "book prev" "book menu" "book multi" "book gaiji" "book picture" "book sound" "book icon" paths about; do
  "$zavel" help $command | sed -n '/^Options:/,$p' | sed 's/Excludes: [-a-z]*//' | long_options >"$work/options"
  page=$source/docs/man/$(page_of "$command").1.scd
  for option in $(cat "$work/options"); do
    checks=$((checks + 1))
    grep -qF -- "*$option*" "$page" || fail "$page lacks $option of \"$command\""
    grep -qF -- "$option" "$source/data/completions/zavel.bash" || fail "zavel.bash lacks $option"
    grep -qF -- "$option" "$source/data/completions/_zavel" || fail "_zavel lacks $option"
    grep -qF -- "-l ${option#--}" "$source/data/completions/zavel.fish" || fail "zavel.fish lacks $option"
  done
  cat "$work/options" >>"$work/all-options"
done
known=" $(sort -u "$work/all-options" | tr '\n' ' ') --version "
for file in "$source"/docs/man/zavel{,-look,-dict,-prefs,-user,-book,-paths,-about}.1.scd "$source"/data/completions/{zavel.bash,_zavel}; do
  for option in $(grep -v 'sed -E\|cut -f' "$file" | long_options); do
    checks=$((checks + 1))
    [[ "$known" == *" $option "* ]] || fail "$file names $option, which no command has"
  done
done
for page in zavel zavel-look zavel-dict zavel-prefs zavel-book zavel-paths zavel-about mkdict; do
  for section in NAME SYNOPSIS DESCRIPTION OPTIONS "EXIT STATUS" EXAMPLES "SEE ALSO"; do
    checks=$((checks + 1))
    grep -qx "# $section" "$source/docs/man/$page.1.scd" || fail "$page.1 has no section $section"
  done
done

# The examples of README and manual pages are commands that the program takes; those of books have a test of their own.
while read -r line; do
  checks=$((checks + 1))
  (cd "$work" && printf 'church\n' >words.txt && PATH=$(dirname "$zavel"):$PATH bash -c "$line" >/dev/null 2>"$work/err" </dev/null)
  status=$?
  [ "$status" -le 1 ] || fail "the example \"$line\" ends in $status: $(cat "$work/err")"
done < <({ sed -n '/^```sh/,/^```/p' "$source/README.md"; sed -n '/^# EXAMPLES/,/^# SEE/p' "$source"/docs/man/zavel{,-look,-dict,-prefs,-user,-paths,-about}.1.scd; } |
  sed -E 's/^[[:space:]]+//; s/\\\\/\\/g; s/ +# .*//' | grep -E '^(zavel|printf|xargs)' | grep -vE 'dict build|zavel book|\| (verify|info)' | sort -u)

# bash: completion of commands, options, values and headwords.
complete_bash() {
  (PATH=$(dirname "$zavel"):$PATH; source "$source/data/completions/zavel.bash"
   COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMPREPLY=(); _zavel; printf '%s\n' "${COMPREPLY[@]}")
}
completes() {
  local expected=$1
  shift
  checks=$((checks + 1))
  [ "$(complete_bash "$@" | tr '\n' ' ')" = "$expected " ] || fail "bash completes \"$*\" to: $(complete_bash "$@" | tr '\n' ' ')"
}
completes "look" zavel lo
completes "--json --root --help --version" zavel --
completes "dict" zavel --root "$work/root" di
completes "build" zavel --root "$work/root" dict b
completes "--progress" zavel --root = "$work/root" dict build --pro
completes "plain" zavel --json dict build --progress = pl
ZAVEL_ROOT=/nowhere completes "church" zavel --root "$work/root" look chu
completes "enable" zavel --json prefs dict e
completes "" zavel look --limit ""
completes "--mode" zavel look --mo
completes "phrase" zavel look --mode ph
completes "church" zavel look chu
completes 'Cape\ Town' zavel look Cape
completes "build" zavel dict b
completes "--if-missing" zavel dict build --if
completes "verify" zavel help dict v
completes "dict" zavel prefs d
completes "enable" zavel prefs dict e
completes "translation" zavel prefs dict enable t
completes "move" zavel help prefs dict m
completes "2" zavel --root "$work/root" prefs dict move translation 2
completes "" zavel --root "$work/root" prefs dict move translation 2 1

echo "$checks checks, $failures failed"
[ "$failures" -eq 0 ]
