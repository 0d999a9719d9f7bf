# Completion of zavel for bash.
_zavel_headwords() {
  local word
  while read -r word; do COMPREPLY+=("$(printf '%q' "$word")"); done \
    < <(zavel look --list --plain --limit 50 -- "$1" 2>/dev/null | cut -f1 | sort -u)
}

_zavel() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} words="--json --root --help"
  case "$previous" in
    --mode) COMPREPLY=($(compgen -W "all pos phrase example" -- "$current")); return ;;
    --color) COMPREPLY=($(compgen -W "auto always never" -- "$current")); return ;;
    --progress) COMPREPLY=($(compgen -W "auto bar plain json none" -- "$current")); return ;;
    --root) COMPREPLY=($(compgen -d -- "$current")); return ;;
    --limit | -n | --suggest | --row) return ;;
  esac
  if [ "$COMP_CWORD" -eq 1 ]; then
    COMPREPLY=($(compgen -W "look dict prefs paths about help --help --version" -- "$current"))
    return
  fi
  case "${COMP_WORDS[1]}" in
    look) words+=" --mode --list --forms --plain --limit --suggest --row --null --color --no-pager" ;;
    dict)
      if [ "$COMP_CWORD" -eq 2 ]; then
        words="build verify info --help"
      elif [ "${COMP_WORDS[2]}" = build ]; then
        words+=" --if-missing --quiet --progress"
      fi ;;
    prefs)
      case $COMP_CWORD in
        2) words="dict --help" ;;
        3) words="list enable disable move --help" ;;
        4) [ "${COMP_WORDS[3]}" = list ] || words+=" bilingual translation" ;;
      esac ;;
    help)
      words="look dict prefs paths about"
      [ "${COMP_WORDS[2]}" = dict ] && words="build verify info"
      [ "${COMP_WORDS[2]}" = prefs ] && words="dict"
      [ "${COMP_WORDS[2]} ${COMP_WORDS[3]}" = "prefs dict" ] && words="list enable disable move" ;;
  esac
  if [ "${COMP_WORDS[1]}" = look ] && [[ "$current" != -* ]] && [ ${#current} -ge 3 ]; then
    COMPREPLY=()
    _zavel_headwords "$current"
    return
  fi
  COMPREPLY=($(compgen -W "$words" -- "$current"))
}
complete -F _zavel zavel
