# Completion of quorvane for bash.
_quorvane() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]} options choices=
  local common='--help --include --exclude --recover --codepage --language --output'
  local place='--area --project --module --at --select --file-lines'
  local condition='--mode --match-case --single-line --comments --whole-word'
  if [ "$COMP_CWORD" -eq 1 ] && [[ $word != */* ]]; then
    COMPREPLY=($(compgen -W 'find replace list --help --version' -- "$word") $(compgen -f -- "$word"))
    return
  fi
  case $before in
    -m | --mode) choices='common pattern regexp' ;;
    -a | --area) choices='group project module procedure selection' ;;
    --comments) choices='include exclude only' ;;
    --format) choices='lines vimgrep json xml count' ;;
    --color) choices='auto always never' ;;
    --sort) choices='none path' ;;
    --recover) choices='finish back keep' ;;
    --language) choices='zh en' ;;
    --codepage) choices='874 932 936 949 950 1250 1251 1252 1253 1254 1255 1256 1257 1258 UTF-8' ;;
  esac
  if [ -n "$choices" ]; then
    COMPREPLY=($(compgen -W "$choices" -- "$word"))
    return
  fi
  case $command in
    find)
      options="$common $place $condition --format --unique --xsl --color --sort --files-with-matches --quiet
        --max-count --after-context --before-context --context"
      ;;
    replace) options="$common $place $condition --write --write-outside" ;;
    list) options="$common --sort --procedures" ;;
  esac
  if [[ $word == -* ]]; then
    COMPREPLY=($(compgen -W "$options" -- "$word"))
  else
    COMPREPLY=($(compgen -f -- "$word"))
  fi
}
complete -o filenames -F _quorvane quorvane
