# bash completion for vehicle-units: commands, options and their values, and the units of the data.

# Prints the source units of the data, or the target units of the unit $1, one a line. The command
# `units` puts two blanks or more behind a source unit and a comma between targets.
_vehicle_units_names() {
  local from=${1-}
  "$program" units "${data[@]}" 2>/dev/null | while IFS= read -r line; do
    if [ -z "$from" ]; then
      printf '%s\n' "${line%%  *}"
    elif [ "${line%%  *}" = "$from" ]; then
      line=${line#"$from"}
      line=${line#"${line%%[! ]*}"}
      printf '%s\n' "${line//, /$'\n'}"
      break
    fi
  done
}

# Offers those of the lines of standard input that begin with the word being completed, each with $1
# behind it, quoted as the shell needs.
_vehicle_units_offer() {
  local typed name
  typed=$(_vehicle_units_plain "$current")
  while IFS= read -r name; do
    if [[ -n $name && $name == "$typed"* ]]; then
      COMPREPLY+=("$(printf '%q' "$name")${1-}")
    fi
  done
}

# The word without the quotes and backslashes that it was typed with.
_vehicle_units_plain() {
  local word=$1
  word=${word//\\/}
  word=${word//\"/}
  printf '%s' "${word//\'/}"
}

_vehicle_units_words() { _vehicle_units_offer < <(printf '%s\n' "$@"); }

_vehicle_units_folders() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -d -- "$current")
}

_vehicle_units_files() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -f -- "$current")
}

_vehicle_units_options() {
  local options=(--help --data)
  case $command in
    help) options=(--help) ;;
    convert) options+=(--float --bare --precision --keep-going) ;;
    log)
      options+=(--name --system --output --out-dir --list --map --map-file --delimiter --decimal-comma
        --decimal-point --units-row --preamble --encoding --precision --on-error --jobs) ;;
    show | monitors) options+=(--name --system) ;;
    check) options+=(--name --samples --format --strict --all --allow --explain) ;;
  esac
  _vehicle_units_words "${options[@]}"
}

_vehicle_units_argument() {
  case $command:${#arguments[@]} in
    convert:0) _vehicle_units_offer < <(_vehicle_units_names) ;;
    convert:1) _vehicle_units_offer < <(_vehicle_units_names "${arguments[0]}") ;;
    show:*)
      compopt -o nospace 2>/dev/null
      _vehicle_units_offer = < <(_vehicle_units_names) ;;
    help:0) _vehicle_units_words "${commands[@]}" ;;
    check:0) _vehicle_units_folders ;;
    log:* | monitors:0) _vehicle_units_files ;;
  esac
}

_vehicle_units() {
  local program=${COMP_WORDS[0]} current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}
  local commands=(convert log units show monitors check graph help)
  local command= arguments=() data=() i
  COMPREPLY=()
  for ((i = 1; i < COMP_CWORD; i++)); do
    case ${COMP_WORDS[i]} in
      --data)
        ((++i))
        data=(--data "$(_vehicle_units_plain "${COMP_WORDS[i]}")") ;;
      --name | --samples | --system | --format | --allow | --explain | --output | -o | --out-dir | --map \
        | --map-file | --delimiter | --preamble | --encoding | --precision | --on-error | --jobs)
        ((++i)) ;;
      -*) ;;
      *)
        if [ -z "$command" ]; then
          command=${COMP_WORDS[i]}
        else
          arguments+=("$(_vehicle_units_plain "${COMP_WORDS[i]}")")
        fi ;;
    esac
  done
  case $previous in
    --data | --out-dir) _vehicle_units_folders ;;
    --samples | --output | -o | --map-file) _vehicle_units_files ;;
    --system) _vehicle_units_words std std_uk metric greek all ;;
    --format) _vehicle_units_words text json sarif ;;
    --encoding) _vehicle_units_words utf-8 iso-8859-1 ;;
    --on-error) _vehicle_units_words keep blank fail ;;
    --name | --allow | --explain | --map | --delimiter | --preamble | --precision | --jobs) ;;
    *)
      if [[ $current == -* ]]; then
        [ -n "$command" ] || _vehicle_units_words --help --version
        [ -z "$command" ] || _vehicle_units_options
      elif [ -z "$command" ]; then
        _vehicle_units_words "${commands[@]}"
      else
        _vehicle_units_argument
      fi ;;
  esac
}

complete -F _vehicle_units vehicle-units
