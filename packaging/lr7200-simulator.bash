# Completion of lr7200-simulator for bash.
_lr7200_simulator() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  case $previous in
    --memory | --link) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
    --pace) mapfile -t COMPREPLY < <(compgen -W 9600 -- "$current") ;;
    --number | --swap | --deaf) COMPREPLY=() ;;
    --fault) mapfile -t COMPREPLY < <(compgen -W "$(lr7200-simulator --help | sed -n 's/^  \([a-z][a-z-]*\)\*\{0,1\}  .*/\1/p')" -- "$current") ;;
    *) mapfile -t COMPREPLY < <(compgen -W "--memory --link --number --swap --pace --deaf --fault --help --version" -- "$current") ;;
  esac
}
complete -o filenames -F _lr7200_simulator lr7200-simulator
