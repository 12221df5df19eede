#compdef cordboard
# Completion of cordboard in zsh. The program knows what is possible; this hands it the words and shows its answer.

_cordboard() {
  local -a given answer done doneShown on onShown
  local line value shown
  given=("${(@Q)words[2,CURRENT]}")
  given[-1]=${(Q)PREFIX}
  answer=("${(@f)$(${(Q)~words[1]} complete -- "${given[@]}" 2>/dev/null)}")
  for line in $answer; do
    value=${line%%$'\t'*}
    shown="$value  ${line#*$'\t'}"
    [[ $line == *$'\t'* ]] || shown=$value
    if [[ $value == :files ]]; then
      _files
    elif [[ $value == *[=:\ ] ]]; then  # a word that goes on: no blank behind it
      on+=("$value")
      onShown+=("$shown")
    else
      done+=("$value")
      doneShown+=("$shown")
    fi
  done
  compadd -l -V possible -d doneShown -a done
  compadd -l -V parameters -S '' -d onShown -a on
}

_cordboard "$@"
