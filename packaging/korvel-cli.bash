# SPDX-License-Identifier: GPL-3.0-or-later
# Completes korvel-cli for bash. Commands and options are asked of the program itself, titles of the
# user's own store.

# Offers those of the lines that begin with the word. Not by compgen -W, which would expand what
# stands in a title.
_korvel_cli_offer() {
  local line
  while IFS= read -r line; do
    [[ -n $line && $line == "$cur"* ]] && COMPREPLY+=("$(printf '%q' "$line")")
  done
}

_korvel_cli() {
  local cur prev words cword
  _init_completion || return
  cur=${cur//\\/}
  local commands command='' i
  commands=$("${words[0]}" --help 2>/dev/null | sed -n '/^Subcommands:/,$s/^  \([a-z]\{1,\}\) .*/\1/p')
  for ((i = 1; i < cword; i++)); do
    if grep -qxF -- "${words[i]}" <<<"$commands"; then
      command=${words[i]}
      break
    fi
  done

  local below=''
  [[ $command =~ ^(tunings|instruments|takes)$ ]] && ((cword > i + 1)) && below=${words[i + 1]}
  if [[ $cur == -* ]]; then
    _korvel_cli_offer < <("${words[0]}" ${command:+"$command"} ${below:+"$below"} --help 2>/dev/null |
      grep -oE -- '--[a-z][a-z-]*' | sort -u)
    return
  fi
  if [ -z "$command" ]; then
    _korvel_cli_offer <<<"$commands"
    return
  fi
  case $prev in
    --txt | --text | --chordpro | --set | --musicxml | --mxl | --gp5 | --gp | --alphatex | --abc | --midi | --wav | --pdf | --png | --svg | --json | --file | --soundfont | --store)
      _filedir
      return
      ;;
    --detection) _korvel_cli_offer < <(printf 'precise\nclassic\n') && return ;;
    --tuning) _korvel_cli_offer < <(
      [[ $command =~ ^(import|transcribe)$ ]] && echo auto
      "${words[0]}" tunings 2>/dev/null | sed 's/^[* ] //; s/ ([A-Gb#0-9 -]*)$//'
    ) && return ;;
    --grid) _korvel_cli_offer < <(printf 'beats\nslices\n') && return ;;
    --what) _korvel_cli_offer < <(printf 'guitar\nband\nauto\n') && return ;;
    --voices) _korvel_cli_offer < <(printf 'melody\nbass\nmelody,bass\n') && return ;;
    --strum | --pattern) _korvel_cli_offer < <("${words[0]}" strum --list 2>/dev/null | sed 's/ .*//') && return ;;
    --metre) _korvel_cli_offer < <(printf '2/4\n3/4\n4/4\n6/8\n12/8\n') && return ;;
    --track) _korvel_cli_offer < <(printf 'list\n') && return ;;
    --finest) _korvel_cli_offer < <(printf '8\n16\n') && return ;;
    --between) _korvel_cli_offer < <(printf 'silence\nclicks\n') && return ;;
    --position) _korvel_cli_offer < <(printf 'open\nanywhere\n') && return ;;
    --numbers) _korvel_cli_offer < <(printf 'roman\nnashville\n') && return ;;
    --paper) _korvel_cli_offer < <(printf 'a4\nletter\n') && return ;;
    --metric) _korvel_cli_offer < <(printf '4/4\n3/4\n6/8\n12/8\n') && return ;;
  esac
  case $command in
    import | transcribe | chords | chordpro | backup | restore) _filedir ;;
    takes)
      ((cword == i + 1)) && _korvel_cli_offer < <("${words[0]}" takes --help 2>/dev/null |
        sed -n '/^Subcommands:/,$s/^  \([a-z]\{1,\}\) .*/\1/p')
      ;;
    tunings | instruments)
      case $((cword - i)):$below in
        1:)
          _korvel_cli_offer < <("${words[0]}" "$command" --help 2>/dev/null |
            sed -n '/^Subcommands:/,$s/^  \([a-z]\{1,\}\) .*/\1/p')
          ;;
        2:add) _korvel_cli_offer < <(printf '%s\n' Standard 'Drop D' 'Open G' 'Open D' DADGAD Eb 'D standard' 'Open E' 'Drop C') ;;
        2:select | 2:export | 2:edit | 2:rename | 2:delete)
          _korvel_cli_offer < <("${words[0]}" "$command" 2>/dev/null | sed 's/^[* ] //; s/ ([A-Gb#0-9 -]*)$//')
          ;;
        *:import | *:export | *:calibrate) _filedir ;;
      esac
      ;;
    apply)
      _korvel_cli_offer < <("${words[0]}" list 2>/dev/null)
      _korvel_cli_offer < <("${words[0]}" apply --list 2>/dev/null | sed -n 's/.*\[\([A-Za-z0-9_]*\)\]$/\1/p')
      ;;
    export)
      if ((cword == i + 1)); then
        _korvel_cli_offer < <("${words[0]}" list 2>/dev/null)
      else
        _filedir
      fi
      ;;
    show | sheet | capo | lyrics | dump | delete | easy | strum | rhythm | doubts | correct | name | finger | grip | retune | loop | clone | rename | move | merge | extract | play | render | recording)
      _korvel_cli_offer < <("${words[0]}" list 2>/dev/null)
      ;;
  esac
}

complete -F _korvel_cli korvel-cli
