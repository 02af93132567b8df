# Fish completion of fiscalon(1). Commands, options and screens are what the program itself names.

function __fiscalon_commands
    fiscalon --help 2>/dev/null | awk '
        /^Subcommands:/ { listed = 1; next }
        listed && !NF { exit }
        listed { name = $1; sub(/^ *[^ ]+ */, ""); print name "\t" $0 }'
end

function __fiscalon_command
    set -l commands (__fiscalon_commands | string split -f 1 \t)
    for word in (commandline -opc)[2..-1]
        if contains -- $word $commands
            echo $word
            return 0
        end
    end
    return 1
end

function __fiscalon_options
    set -l command (__fiscalon_command)
    fiscalon $command --help 2>/dev/null | awk '
        /^Options:/ { listed = 1; next }
        listed && !NF { exit }
        listed && /^  (-h,)?--/ {
            match($0, /--[a-z-]+/)
            name = substr($0, RSTART, RLENGTH)
            text = substr($0, RSTART + RLENGTH)
            if (match(text, /  +/)) text = substr(text, RSTART + RLENGTH)
            else { getline text; sub(/^ +/, "", text) }
            print name "\t" text
        }'
    if test -n "$command"
        printf '%s\n' --today\t'The day that the run takes for today' --locale\t'How numbers, money and moments are written' \
            --language\t'The language of forms; English without it'
    end
end

# All screens, or with --judged those whose payments are judged.
function __fiscalon_screens
    fiscalon screens $argv 2>/dev/null | awk 'NR > 1 { code = $1; $1 = $2 = ""; sub(/^ +/, ""); print code "\t" $0 }'
end

function __fiscalon_scenarios
    complete -C "'' "(commandline -ct) | string match -r '.*(?:\.scenario|/)$'
end

function __fiscalon_after
    set -l before (commandline -opc)[-1]
    contains -- $before --$argv
end

# The next word is an operand: the one before is no option that takes a value.
function __fiscalon_operand
    set -l before (string escape --style=regex -- (commandline -opc)[-1])
    not begin; fiscalon --help; fiscalon (__fiscalon_command) --help; end 2>/dev/null |
        string match -qr -- "^  $before [A-Z]"
end

function __fiscalon_front_ends
    fiscalon play --help 2>/dev/null | string replace -rf '.*--toolkit.*the forms: *' '' | string split ', '
end

function __fiscalon_operand_of
    contains -- "$(__fiscalon_command)" $argv; and __fiscalon_operand
end

complete -c fiscalon -f
complete -c fiscalon -n 'not __fiscalon_command >/dev/null; and __fiscalon_operand' -a '(__fiscalon_commands)'
complete -c fiscalon -n 'string match -q -- "-*" (commandline -ct)' -a '(__fiscalon_options)'
complete -c fiscalon -n '__fiscalon_operand_of collect picture' -a '(__fiscalon_screens)'
complete -c fiscalon -n '__fiscalon_operand_of play' -a '(__fiscalon_scenarios)'
complete -c fiscalon -n '__fiscalon_operand_of show validate' -F

complete -c fiscalon -n '__fiscalon_after locale' -a 'en-CA en-US fr-CA system'
complete -c fiscalon -n '__fiscalon_after language' -a 'en fr'
complete -c fiscalon -n '__fiscalon_after toolkit' -a '(__fiscalon_front_ends)'
complete -c fiscalon -n '__fiscalon_after screen; and test "$(__fiscalon_command)" = show' -a '(__fiscalon_screens)'
complete -c fiscalon -n '__fiscalon_after screen; and test "$(__fiscalon_command)" != show' -a '(__fiscalon_screens --judged)'
complete -c fiscalon -n '__fiscalon_after write-file play-by-play-enabled' -a 'True False'
complete -c fiscalon -n '__fiscalon_after scenario' -a '(__fiscalon_scenarios)'
complete -c fiscalon -n '__fiscalon_after records report faults good out record gov-filename main-path' -F
complete -c fiscalon -n '__fiscalon_after only; and test "$(__fiscalon_command)" = show' -a 'T F G P R I'
complete -c fiscalon -n '__fiscalon_after json; and test "$(__fiscalon_command)" = collect' -F
complete -c fiscalon -n '__fiscalon_after payments; and test "$(__fiscalon_command)" = show' -F
# A file for validate, a number for generate.
complete -c fiscalon -n '__fiscalon_after payments bad; and test "$(__fiscalon_command)" = validate' -F
