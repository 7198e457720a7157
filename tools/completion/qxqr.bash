# SPDX-License-Identifier: MIT
# bash completion for qxqr. The commands, their options and what each option
# takes are read from the tool's own help, so that they are always those of
# the qxqr being completed; scripts, files and folders come from the file
# system.

# The commands that `qxqr --help` lists.
_qxqr_commands() {
    "$1" --help 2>/dev/null | sed -n '/^Subcommands:/,$s/^  \([a-z][a-z-]*\) .*/\1/p'
}

# The options of one command, each of its spellings ("-h,--help" gives two).
_qxqr_options() {
    "$1" "$2" --help 2>/dev/null | sed -n 's/^  \(-[^ ]*\).*/\1/p' | tr ',' '\n'
}

# What an option of a command takes, as its help names it: DIR, FILE, N,
# NAME=VALUE, FORMAT:{text,json}; nothing for a flag.
_qxqr_option_value() {
    "$1" "$2" --help 2>/dev/null | awk -v option="$3" '
        /^  -/ { split($1, names, ","); for (i in names) if (names[i] == option && $2 ~ /^[A-Z]/) print $2 }'
}

_qxqr() {
    local qxqr=${COMP_WORDS[0]} cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}
    local command="" word i value
    COMPREPLY=()
    for ((i = 1; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        # After "--" come the files (or start files), and "-" for standard input.
        if [[ $word == -- ]]; then
            mapfile -t COMPREPLY < <(compgen -f -- "$cur")
            return
        fi
        [[ -z $command && $word != -* ]] && command=$word
    done

    if [[ -z $command ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_qxqr_commands "$qxqr") --help --version" -- "$cur")
        return
    fi
    if [[ $prev == -* ]]; then
        value=$(_qxqr_option_value "$qxqr" "$command" "$prev")
        case $value in
            DIR) mapfile -t COMPREPLY < <(compgen -d -- "$cur"); return ;;
            FILE) mapfile -t COMPREPLY < <(compgen -f -- "$cur"); return ;;
            *:{*})
                value=${value#*:\{}
                value=${value%\}}
                mapfile -t COMPREPLY < <(compgen -W "${value//,/ }" -- "$cur")
                return
                ;;
            ?*) return ;;
        esac
    fi
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_qxqr_options "$qxqr" "$command") --" -- "$cur")
        return
    fi
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
}
complete -o filenames -F _qxqr qxqr
