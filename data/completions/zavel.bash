# Completion of zavel for bash.
_zavel() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} words=
  case "$previous" in
    --mode) COMPREPLY=($(compgen -W "all pos phrase example" -- "$current")); return ;;
    --color) COMPREPLY=($(compgen -W "auto always never" -- "$current")); return ;;
    --progress) COMPREPLY=($(compgen -W "auto bar plain json none" -- "$current")); return ;;
  esac
  if [ "$COMP_CWORD" -eq 1 ]; then
    COMPREPLY=($(compgen -W "look dict paths about help --help --version" -- "$current"))
    return
  fi
  case "${COMP_WORDS[1]}" in
    look) words="--mode --list --forms --json --limit --suggest --null --color --help" ;;
    dict)
      if [ "$COMP_CWORD" -eq 2 ]; then
        words="build verify info --help"
      elif [ "${COMP_WORDS[2]}" = build ]; then
        words="--if-missing --quiet --json --progress --help"
      else
        words="--json --help"
      fi ;;
    paths | about) words="--json --help" ;;
    help) words="look dict paths about" ;;
  esac
  if [ "${COMP_WORDS[1]}" = look ] && [[ "$current" != -* ]] && [ ${#current} -ge 3 ]; then
    local IFS=$'\n'
    COMPREPLY=($(zavel look --list --limit 50 -- "$current" 2>/dev/null | sed -E 's/^\*+//; s/ \[.*//' | sort -u))
    return
  fi
  COMPREPLY=($(compgen -W "$words" -- "$current"))
}
complete -F _zavel zavel
