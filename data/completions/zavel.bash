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
    --root)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -d -- "$current")
      return ;;
    ?*) return ;;
  esac
  case "${line[*]}" in
    "") words+=" --version look dict prefs paths about help" ;;
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
    help) words="look dict prefs paths about" ;;
    "help dict") words="build verify info" ;;
    "help prefs") words="dict" ;;
    "help prefs dict") words="list enable disable move" ;;
    help*) return ;;
  esac
  COMPREPLY=($(compgen -W "$words" -- "$current"))
}
complete -F _zavel zavel
