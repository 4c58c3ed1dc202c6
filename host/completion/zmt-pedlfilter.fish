# fish completion for zmt-pedlfilter. Subcommands, options, programs and parameters are asked of the
# command itself, so that this needs no change when they do.

function __zmt_pedlfilter_complete
    set -l words (commandline -opc)
    set -l command $words[1]
    switch $words[-1]
        case --program
            $command programs 2>/dev/null | sed -n '2,$s/^ *[0-9]* *//p' | sort -u
        case --set --link --automate
            $command params 2>/dev/null | awk 'NR > 1 && $2 !~ /^[0-9.]+$/ {print $2 "="}'
        case --bits
            printf '%s\n' 16 24 32f
        case --format
            if test $words[2] = convert
                printf '%s\n' zmt json
            else
                printf '%s\n' wav flac aiff ogg caf w64 rf64
            end
        case --to
            __fish_complete_directories (commandline -ct)
        case --tempo --block --tail --scale --seconds
        case '*'
            if test (count $words) -eq 1
                $command --help 2>/dev/null | awk '/^Subcommands:/ {on = 1; next} /^$/ {on = 0} on && /^  [a-z]/ {name = $1; $1 = ""; print name "\t" substr($0, 2)}'
                printf '%s\n' --help --version
            else if string match -q -- '-*' (commandline -ct)
                $command $words[2] --help 2>/dev/null | sed -n 's/^  \(-h,\)\{0,1\}\(--[a-z-]*\).*/\2/p'
            else
                __fish_complete_path (commandline -ct)
            end
    end
end

complete -c zmt-pedlfilter -f -a '(__zmt_pedlfilter_complete)'
