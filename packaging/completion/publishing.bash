# Completion of publishing(1) for bash.

# The words of one option's value, or nothing.
_publishing_values() {
  case $1 in
    -d | --printer) lpstat -e 2>/dev/null ;;
    --sides) echo one-sided two-sided-long-edge two-sided-short-edge ;;
    --number-up) echo 1 2 4 6 9 16 ;;
    --preset) publishing preset list 2>/dev/null ;;
    --cover) echo none front front-back ;;
    --cover-sides) echo none front-outside front-inside back-outside back-inside ;;
    --insert-sides) echo none front back ;;
    --toolkit) echo gtk3 gtk4 qt ;;
  esac
}

_publishing_options() {
  case $1 in
    print) echo -d --printer --ppd --output --sides --number-up --reverse -n --copies -P --pages -t --title \
      -o --option --preset --cover --cover-media --cover-sides --insert --insert-media --insert-sides --fresh \
      --remember --ignore-conflicts --dry-run --wait --json --help ;;
    sheets) echo -d --printer --ppd --pages --picture --sides --number-up --reverse -n --copies -P -o --option \
      --preset --cover --cover-media --cover-sides --insert --insert-media --insert-sides --fresh --ignore-conflicts \
      --json --help ;;
    media) echo -d --printer --ppd --mark --json --help ;;
    pages) echo --two-sided --cover-value --json --help ;;
    settings) echo show clear remember on off -d --printer --json --help ;;
    preset) echo list show save delete export import -d --printer --ppd --sides --preset --cover --cover-media \
      --cover-sides --insert --insert-media --insert-sides --name --force --json --help ;;
    printer) echo enable disable status -d --printer --all --ppd --output --json --help ;;
    extension) echo enable disable status --system --toolkit --json --help ;;
    dialog) echo --help ;;
    *) echo print sheets media pages settings preset printer extension dialog --version --help ;;
  esac
}

_publishing() {
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local command=${COMP_WORDS[1]} values
  ((COMP_CWORD == 1)) && command=
  values=$(_publishing_values "$previous")
  COMPREPLY=()
  if [[ $values ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$values" -- "$word")
  elif [[ $previous == --ppd || $previous == --output || $previous == --picture ]]; then
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
  elif [[ $word == -* || $COMP_CWORD == 1 || $command =~ ^(settings|preset|printer|extension)$ ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_publishing_options "$command")" -- "$word")
  elif [[ $command == print || $command == sheets || $command == dialog ]]; then
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
  fi
}

complete -F _publishing publishing
