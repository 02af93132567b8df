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
        printf '%s\n' --today\t'The day that the run takes for today' --locale\t'How numbers, money and moments are written'
    end
end

# With "yes" the screens that have a form here, else all codes.
function __fiscalon_screens
    fiscalon screens 2>/dev/null | awk -v form="$argv[1]" 'NR > 1 && (form == "" || $3 == form) { code = $1; $1 = $2 = $3 = ""; sub(/^ +/, ""); print code "\t" $0 }'
end

complete -c fiscalon -f
complete -c fiscalon -n 'not __fiscalon_command >/dev/null' -a '(__fiscalon_commands)'
complete -c fiscalon -n 'string match -q -- "-*" (commandline -ct)' -a '(__fiscalon_options)'
complete -c fiscalon -n 'contains -- (__fiscalon_command) collect picture' -a '(__fiscalon_screens yes)'
complete -c fiscalon -n 'contains -- (__fiscalon_command) play show validate' -F

complete -c fiscalon -l locale -x -a 'en-CA en-US fr-CA system'
complete -c fiscalon -n 'contains -- (__fiscalon_command) play' -l toolkit -x -a 'scripted qt'
complete -c fiscalon -n 'contains -- (__fiscalon_command) show validate generate' -l screen -x -a '(__fiscalon_screens)'
complete -c fiscalon -n 'contains -- (__fiscalon_command) show' -l only -x -a 'T F G P R I'
complete -c fiscalon -n 'contains -- (__fiscalon_command) collect' -l write-file -x -a 'True False'
complete -c fiscalon -n 'contains -- (__fiscalon_command) collect' -l play-by-play-enabled -x -a 'True False'
for option in payments records report faults good out record scenario gov-filename main-path
    complete -c fiscalon -n "string match -q -- --$option (commandline -opc)[-1]" -F
end
complete -c fiscalon -n 'contains -- (__fiscalon_command) validate; and string match -q -- --bad (commandline -opc)[-1]' -F
