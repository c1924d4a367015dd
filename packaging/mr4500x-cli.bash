# Completion of mr4500x-cli for bash.

# The values that a setting can have, one a line. Numbers and frequencies have too many.
_mr4500x_cli_values() {
  "$1" fields --json 2>/dev/null | awk -v field="\"field\": \"$2\"," '
    /"field":/ { found = index($0, field) }
    /]/ { isList = 0 }
    found && /"yes\/no"/ { print "true\nfalse" }
    found && isList { sub(/^ *"/, ""); sub(/",?$/, ""); print }
    /"choices":/ { isList = 1 }'
}

_mr4500x_cli() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} word count=0
  local field=${COMP_WORDS[COMP_CWORD - 2]} # in FIELD = VALUE, which are three words
  [ "$current" != = ] || field=$previous previous="=" current=""
  [[ $previous$field != =-* ]] || previous=$field # --option=value
  local command=${COMP_WORDS[1]} files="" ports="" words="" value=""
  for word in "${COMP_WORDS[@]:2:COMP_CWORD-2}"; do
    [ "$word" != = ] || continue
    [ -z "$value" ] || { value=""; continue; }
    case $word in
      -o | --output | --trace | --from | --rows | --ports | --journal | --log | --csv | --backup | --reports | --count | --plan | \
        --operator | --on-verified | --radio | --free | --reissue | --note) value=yes ;;
      -* | "$current") ;;
      *) count=$((count + 1)) ;;
    esac
  done
  if [ "$COMP_CWORD" -eq 1 ]; then
    words="new show fields get set apply channels diff identify read write verify info print ports fleet help --help --version"
  elif [ "$previous" = --reports ]; then
    words="channels tts info channels,tts channels,info tts,info channels,tts,info"
  elif [ "$command$previous" = "set=" ]; then
    local IFS=$'\n'
    mapfile -t COMPREPLY < <(compgen -W "$(_mr4500x_cli_values "${COMP_WORDS[0]}" "$field")" -- "$current")
    return 0
  elif [ "$command$previous" = fleet--ports ]; then
    words="all $(seq 1 16 | tr '\n' ' ')$(compgen -G '/dev/ttyUSB*') $(compgen -G '/dev/serial/by-id/*')"
  elif [[ $previous == --@(count|plan|operator|on-verified|radio|free|reissue|note) ]]; then
    COMPREPLY=()
    return 0
  elif [ "$previous" = --backup ]; then
    mapfile -t COMPREPLY < <(compgen -d -- "$current")
    return 0
  elif [[ $previous == @(-o|--@(trace|from|output|rows|journal|log|csv)) ]]; then
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
    return 0
  else
    [ "$command:$count" != help:1 ] || command="help ${COMP_WORDS[2]}"
    case $command:$count in
      diff:[01]) files='*.@(K4X|k4x|K4Y|k4y)' ports=yes ;;
      new:0 | show:0 | fields:0 | get:0 | set:0 | apply:0 | channels:1 | write:0 | verify:0 | print:0 | read:1) files='*.@(K4X|k4x|K4Y|k4y)' ;;
      fleet:0) files='*.@(K4X|k4x|K4Y|k4y)' words=journal ;;
      fleet:1) files='*.@(K4X|k4x|K4Y|k4y|journal)' ;;
      print:*) files='*.pdf' ;;
      apply:1) files='*.json' ;;
      channels:0 | help\ channels:1) words="export import" ;;
      channels:2) files='*.csv' ;;
      get:*) words=$("${COMP_WORDS[0]}" fields 2>/dev/null | cut -f 1) ;;
      set:*)
        words=$("${COMP_WORDS[0]}" fields 2>/dev/null | cut -f 1 | sed 's/$/=/')
        [[ $current == -* ]] || compopt +o filenames -o nospace # neither \= nor a blank after it
        ;;
      identify:0 | read:0 | write:1 | verify:1 | info:1) ports=yes ;;
      info:0 | help\ info:1) words="read write" ;;
      help:0) words="new show fields get set apply channels diff identify read write verify info print ports fleet" ;;
    esac
    case $command:${COMP_WORDS[2]} in
      channels:export | channels:import | info:read | info:write | fleet:journal) command="$command ${COMP_WORDS[2]}" ;;
    esac
    # shellcheck disable=SC2086 # a command of another one is two words
    [[ $current != -* ]] || words=$("${COMP_WORDS[0]}" $command --help 2>/dev/null | sed -nE 's/^  (-[a-z],)?(--[a-z-]+).*/\2/p')
  fi
  [ -z "$ports" ] || words="auto $(seq 1 16 | tr '\n' ' ')$(compgen -G '/dev/ttyUSB*') $(compgen -G '/dev/ttyACM*') $(compgen -G '/dev/serial/by-id/*') $words"
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
  [ -n "$files" ] || return 0
  local extglob_was_set=0
  shopt -q extglob && extglob_was_set=1
  shopt -s extglob
  mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -X "!$files" -- "$current"; compgen -d -- "$current")
  [ "$extglob_was_set" -eq 1 ] || shopt -u extglob
}
complete -o filenames -F _mr4500x_cli mr4500x-cli
