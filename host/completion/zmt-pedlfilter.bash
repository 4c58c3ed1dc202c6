# bash completion for zmt-pedlfilter. Subcommands, options, programs and parameters are asked of the
# command itself, so that this needs no change when they do.

_zmt_pedlfilter() {
    local IFS=$'\n' word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    local command=${COMP_WORDS[0]} subcommand=
    ((COMP_CWORD > 1)) && subcommand=${COMP_WORDS[1]}

    case $before in
    --program)
        # Names have spaces: quoted when they are put in.
        local name
        for name in $("$command" programs 2>/dev/null | sed -n '2,$s/^ *[0-9]* *//p' | sort -u); do
            [[ ${name,,} == "${word,,}"* ]] && COMPREPLY+=("$(printf %q "$name")")
        done
        return
        ;;
    --set | --link | --automate)
        compopt -o nospace
        COMPREPLY=($(compgen -S = -W "$("$command" params 2>/dev/null |
            awk 'NR > 1 && $2 !~ /^[0-9.]+$/ {print $2}')" -- "$word"))
        return
        ;;
    --bits) COMPREPLY=($(compgen -W $'16\n24\n32f' -- "$word")) && return ;;
    --format)
        local formats=$'wav\nflac\naiff\nogg\ncaf\nw64\nrf64'
        [[ $subcommand == convert ]] && formats=$'zmt\njson'
        COMPREPLY=($(compgen -W "$formats" -- "$word"))
        return
        ;;
    --to)
        compopt -o filenames
        COMPREPLY=($(compgen -d -- "$word"))
        return
        ;;
    --tempo | --block | --tail | --scale | --seconds) return ;;
    esac

    if [[ -z $subcommand ]]; then
        COMPREPLY=($(compgen -W "$("$command" --help 2>/dev/null |
            awk '/^Subcommands:/ {on = 1; next} /^$/ {on = 0} on && /^  [a-z]/ {print $1}')
--help
--version" -- "$word"))
    elif [[ $word == -* ]]; then
        COMPREPLY=($(compgen -W "$("$command" "$subcommand" --help 2>/dev/null |
            sed -n 's/^  \(-h,\)\{0,1\}\(--[a-z-]*\).*/\2/p')" -- "$word"))
    else
        compopt -o filenames
        COMPREPLY=($(compgen -f -- "$word"))
    fi
}

complete -F _zmt_pedlfilter zmt-pedlfilter
