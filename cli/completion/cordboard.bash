# Completion of cordboard in bash. The program knows what is possible; this hands it the words and shows its answer.

_cordboard() {
  # Bash takes words apart at "=" and ":" too, and completes the last piece alone: put them together as they are typed.
  local line=${COMP_LINE:0:COMP_POINT} words=() piece blanks i
  for ((i = 0; i <= COMP_CWORD; ++i)); do
    blanks=${line%%[![:blank:]]*}
    line=${line#"$blanks"}
    piece=${COMP_WORDS[i]}
    ((i < COMP_CWORD)) || piece=$line
    line=${line#"$piece"}
    if [[ $i -eq 0 || -n $blanks ]]; then words+=("$piece"); else words[-1]+=$piece; fi
  done
  words=("${words[@]//[\"\'\\]/}")

  local answer
  mapfile -t answer < <("${words[0]/#\~/$HOME}" complete -- "${words[@]:1}" 2>/dev/null)

  # A sign at which words are taken apart stays where it is.
  local before value description width=0
  [[ $piece == [=:] ]] && piece=
  before=${words[-1]%"${piece//[\"\'\\]/}"}
  for value in "${answer[@]%%$'\t'*}"; do
    ((${#value} > width)) && width=${#value}
  done
  COMPREPLY=()
  for line in "${answer[@]}"; do
    IFS=$'\t' read -r value description <<<"$line"
    if [[ $value == :files ]]; then
      compopt -o default
    elif ((COMP_TYPE == 63)); then  # the list of all that is possible, after a second tabulator
      printf -v value '%-*s  %s' "$width" "$value" "$description"
      COMPREPLY+=("${value#"$before"}")
    else
      COMPREPLY+=("${value#"$before"}")
    fi
  done
  # A word that goes on: no blank behind it, and a second reply, since bash would close the quotes that it stands in.
  if [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *[=:\ ] ]]; then
    compopt -o nospace
    [[ $piece == [\"\']* ]] && COMPREPLY+=("${COMPREPLY[0]} ")
  fi
}

complete -o nosort -F _cordboard cordboard
