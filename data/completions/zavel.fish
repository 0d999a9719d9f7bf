# Completion of zavel for fish.
function __zavel_headwords
    set -l word (commandline -ct)
    test (string length -- "$word") -ge 3; or return
    zavel look --list --plain --limit 50 -- "$word" 2>/dev/null | cut -f1 | sort -u
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
complete -c zavel -n '__fish_seen_subcommand_from dict; and not __fish_seen_subcommand_from prefs' -a 'build verify info'
complete -c zavel -n '__fish_seen_subcommand_from dict' -l if-missing -d 'Do nothing if there is one'
complete -c zavel -n '__fish_seen_subcommand_from dict' -s q -l quiet -d 'No summary'
complete -c zavel -n '__fish_seen_subcommand_from dict' -l progress -x -a 'auto bar plain json none'
complete -c zavel -n '__fish_seen_subcommand_from prefs; and not __fish_seen_subcommand_from dict' -a dict
complete -c zavel -n '__fish_seen_subcommand_from prefs; and __fish_seen_subcommand_from dict' -a 'list enable disable move bilingual translation'
complete -c zavel -n '__fish_seen_subcommand_from help' -a 'look dict prefs paths about'
