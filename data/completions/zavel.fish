# Completion of zavel for fish.
function __zavel_headwords
    set -l word (commandline -ct)
    test (string length -- "$word") -ge 3; or return
    zavel look --list --plain --limit 50 -- "$word" 2>/dev/null | cut -f1 | sort -u
end

# The words in front of the cursor without options and the folder of --root: "dict" is a command of its own and one
# of "prefs".
function __zavel_line
    set -l folder 0
    for word in (commandline -opc)[2..-1]
        if test $folder -eq 1
            set folder 0
        else if test "$word" = --root
            set folder 1
        else if not string match -q -- '-*' "$word"
            echo $word
        end
    end
end

# Whether these are all words so far, or the first of them is this one.
function __zavel_words
    set -l line (__zavel_line)
    test "$line" = "$argv"
end
function __zavel_in
    set -l line (__zavel_line)
    test "$line[1]" = "$argv[1]"
end

complete -c zavel -f
complete -c zavel -n __fish_use_subcommand -a look -d 'Look words up'
complete -c zavel -n __fish_use_subcommand -a dict -d 'Make, check and describe the dictionary'
complete -c zavel -n __fish_use_subcommand -a prefs -d 'Show and change preferences'
complete -c zavel -n __fish_use_subcommand -a paths -d 'Print the folders in use'
complete -c zavel -n __fish_use_subcommand -a about -d 'Version, sources and licences'
complete -c zavel -n __fish_use_subcommand -a help -d 'Help of a command'
complete -c zavel -s h -l help -d 'Print help'
complete -c zavel -s j -l json -d 'JSON'
complete -c zavel -l root -x -a '(__fish_complete_directories)' -d 'Keep all files below this folder'
complete -c zavel -n __fish_use_subcommand -s V -l version -d 'Print the version'
complete -c zavel -n '__fish_seen_subcommand_from look' -l mode -x -a 'all pos phrase example' -d 'Part of the entries'
complete -c zavel -n '__fish_seen_subcommand_from look' -s l -l list -d 'Only headwords'
complete -c zavel -n '__fish_seen_subcommand_from look' -l forms -d 'Only the inflection table'
complete -c zavel -n '__fish_seen_subcommand_from look' -l plain -d 'One record a line'
complete -c zavel -n '__fish_seen_subcommand_from look' -l no-pager -d 'No pager'
complete -c zavel -n '__fish_seen_subcommand_from look' -s n -l limit -x -d 'At most so many'
complete -c zavel -n '__fish_seen_subcommand_from look' -l suggest -x -d 'Near headwords for a word not found'
complete -c zavel -n '__fish_seen_subcommand_from look' -l row -x -d 'Show this row of the result list'
complete -c zavel -n '__fish_seen_subcommand_from look' -s 0 -l null -d 'Words end in NUL'
complete -c zavel -n '__fish_seen_subcommand_from look' -l color -x -a 'auto always never' -d 'Colours'
complete -c zavel -n '__fish_seen_subcommand_from look' -a '(__zavel_headwords)'
complete -c zavel -n '__zavel_words dict' -a 'build verify info'
complete -c zavel -n '__zavel_in dict' -l if-missing -d 'Do nothing if there is one'
complete -c zavel -n '__zavel_in dict' -s q -l quiet -d 'No summary'
complete -c zavel -n '__zavel_in dict' -l progress -x -a 'auto bar plain json none'
complete -c zavel -n '__zavel_words prefs' -a dict
complete -c zavel -n '__zavel_words prefs dict' -a 'list enable disable move'
for command in enable disable move
    complete -c zavel -n "__zavel_words prefs dict $command" -a 'bilingual translation'
end
complete -c zavel -n '__fish_seen_subcommand_from help' -a 'look dict prefs paths about'
