# Completion of zavel for bash.

# The words ahead of the cursor: commands and arguments in `line`, the folder of --root in `root`, the option whose value
# stands at the cursor in `valued`. bash makes words of their own of "=" signs.
_zavel_read() {
  local word i
  line=() root=() valued=
  for ((i = 1; i < COMP_CWORD; ++i)); do
    word=${COMP_WORDS[i]}
    if [ -n "$valued" ]; then
      [ "$word" = = ] && continue
      [ "$valued" = --root ] && word=${word//\\/} && root=(--root "${word/#\~\//$HOME/}")
      valued=
      continue
    fi
    case "$word" in
      --root | --mode | --color | --progress | --limit | -n | --suggest | --row) valued=$word ;;
      --method | --dict | -d | --output | -o | --form | --source | --title) valued=$word ;;
      --lang | --pos | --format | --number | --phrase | --kanji | --reading | --example | --sentence | --set) valued=$word ;;
      -*) ;;
      *) line+=("$word") ;;
    esac
  done
}

_zavel_headwords() {
  local word
  while read -r word; do COMPREPLY+=("$(printf '%q' "$word")"); done \
    < <(zavel "${root[@]}" look --list --plain --limit 50 -- "$1" 2>/dev/null | cut -f1 | sort -u)
}

_zavel_own_words() {
  local word
  while read -r word; do COMPREPLY+=("$(printf '%q' "$word")"); done \
    < <(zavel "${root[@]}" user list -- "$1" 2>/dev/null | head -n 50)
}

_zavel_books() {
  local name
  while read -r name; do [[ "$name" == "$1"* ]] && COMPREPLY+=("$(printf '%q' "$name")"); done \
    < <(zavel "${root[@]}" book list --plain 2>/dev/null | cut -f1)
}

_zavel() {
  local current=${COMP_WORDS[COMP_CWORD]} words="--json --root --help" valued
  local -a line root
  COMPREPLY=()
  _zavel_read
  [ "$current" = = ] && current=
  case "$valued" in
    --mode) COMPREPLY=($(compgen -W "all pos phrase example" -- "$current")); return ;;
    --color) COMPREPLY=($(compgen -W "auto always never" -- "$current")); return ;;
    --progress) COMPREPLY=($(compgen -W "auto bar plain json none" -- "$current")); return ;;
    --method) COMPREPLY=($(compgen -W "exact forward backward keyword cross" -- "$current")); return ;;
    --form) COMPREPLY=($(compgen -W "dictd edict kanjidic text" -- "$current")); return ;;
    --dict | -d) _zavel_books "$current"; return ;;
    --output | -o | --source)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -f -- "$current")
      return ;;
    --lang) COMPREPLY=($(compgen -W "en ja" -- "$current")); return ;;
    --format) COMPREPLY=($(compgen -W "tsv json jsonl" -- "$current")); return ;;
    --pos) COMPREPLY=($(compgen -W "noun pronoun adjective adverb verb transitive intransitive preposition conjunction" -- "$current")); return ;;
    --root)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -d -- "$current")
      return ;;
    ?*) return ;;
  esac
  case "${line[*]}" in
    "") words+=" --version look dict prefs user book paths about help" ;;
    look | "look "*)
      words+=" --mode --list --forms --plain --limit --suggest --row --null --color --no-pager"
      if [[ "$current" != -* ]]; then
        [ ${#current} -ge 3 ] && _zavel_headwords "$current"
        return
      fi ;;
    dict) words+=" build verify info" ;;
    "dict build") words+=" --if-missing --quiet --progress" ;;
    prefs) words+=" dict" ;;
    "prefs dict") words+=" list enable disable move" ;;
    "prefs dict enable" | "prefs dict disable" | "prefs dict move") words+=" bilingual translation" ;;
    "prefs dict move "*)
      [ ${#line[@]} -eq 4 ] && words+=" $(zavel "${root[@]}" prefs dict list 2>/dev/null | cut -d' ' -f1)" ;;
    user) words+=" add edit find list delete arrange import export" ;;
    "user add"*) words+=" --lang --pos --phrase --kanji --reading --example --sentence --force" ;;
    "user list"*) words+=" --lang" ;;
    "user arrange") words+=" --lang --accept" ;;
    "user edit") words+=" --lang --number --set --no-input" ;;&
    "user find") words+=" --lang" ;;&
    "user delete") words+=" --lang --number --all --yes --no-input" ;;&
    "user edit" | "user find" | "user delete")
      if [[ "$current" != -* ]]; then
        _zavel_own_words "$current"
        return
      fi ;;
    "user import") words+=" --lang --replace --skip-existing --force --progress" ;;&
    "user export") words+=" --lang --format" ;;&
    "user import" | "user export")
      if [[ "$current" != -* ]]; then
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
        return
      fi ;;
    book) words+=" build list info search show next prev menu multi gaiji picture sound icon" ;;
    "book build"*) words+=" --all --list --form --source --title --if-missing --verify --quiet --progress" ;;
    "book list") words+=" --plain" ;;
    "book search"*) words+=" --method --query --dict --limit --plain --null --color --no-pager" ;;
    "book show"* | "book next"* | "book prev"*) words+=" --limit --raw --color --no-pager" ;;&
    "book menu"*) words+=" --pictures --color --no-pager" ;;&
    "book multi"*) words+=" --limit --plain --color --no-pager" ;;&
    "book gaiji"*) words+=" --half --output --color --no-pager" ;;&
    "book picture"*) words+=" --output --color" ;;&
    "book sound"*) words+=" --play --output --color" ;;&
    "book icon"*) words+=" --small --output --color" ;;&
    "book info" | "book show" | "book next" | "book prev" | "book menu" | "book multi" | "book gaiji" | "book picture" | \
      "book sound" | "book icon")
      if [[ "$current" != -* ]]; then
        _zavel_books "$current"
        return
      fi ;;
    help) words="look dict prefs user book paths about" ;;
    "help book") words="build list info search show next prev menu multi gaiji picture sound icon" ;;
    "help dict") words="build verify info" ;;
    "help prefs") words="dict" ;;
    "help user") words="add edit find list delete arrange import export" ;;
    "help prefs dict") words="list enable disable move" ;;
    help*) return ;;
  esac
  COMPREPLY=($(compgen -W "$words" -- "$current"))
}
complete -F _zavel zavel
