# Completion of zavel for fish.
function __zavel_headwords
    set -l word (commandline -ct)
    test (string length -- "$word") -ge 3; or return
    zavel (__zavel_root) look --list --plain --limit 50 -- "$word" 2>/dev/null | cut -f1 | sort -u
end

# --root and its folder, where they stand in front of the cursor.
function __zavel_root
    set -l words (commandline -opc)
    for place in (seq (count $words))
        if test "$words[$place]" = --root; and test $place -lt (count $words)
            printf '%s\n' --root (string unescape -- $words[(math $place + 1)] | string replace -r '^~/' "$HOME/")
        else if string match -q -- '--root=*' $words[$place]
            string unescape -- $words[$place]
        end
    end
end

# The words in front of the cursor without options and their values: "dict" is a command of its own and one of "prefs".
function __zavel_line
    set -l valued 0
    for word in (commandline -opc)[2..-1]
        if test $valued -eq 1
            set valued 0
        else if contains -- $word --root --mode --color --progress --limit -n --suggest --row
            set valued 1
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
complete -c zavel -n __zavel_words -a look -d 'Look words up'
complete -c zavel -n __zavel_words -a dict -d 'Make, check and describe the dictionary'
complete -c zavel -n __zavel_words -a prefs -d 'Show and change preferences'
complete -c zavel -n __zavel_words -a paths -d 'Print the folders in use'
complete -c zavel -n __zavel_words -a about -d 'Version, sources and licences'
complete -c zavel -n __zavel_words -a help -d 'Help of a command'
complete -c zavel -s h -l help -d 'Print help'
complete -c zavel -s j -l json -d 'JSON'
complete -c zavel -l root -x -a '(__fish_complete_directories)' -d 'Keep all files below this folder'
complete -c zavel -n __zavel_words -s V -l version -d 'Print the version'
complete -c zavel -n '__zavel_in look' -l mode -x -a 'all pos phrase example' -d 'Part of the entries'
complete -c zavel -n '__zavel_in look' -s l -l list -d 'Only headwords'
complete -c zavel -n '__zavel_in look' -l forms -d 'Only the inflection table'
complete -c zavel -n '__zavel_in look' -l plain -d 'One record a line'
complete -c zavel -n '__zavel_in look' -l no-pager -d 'No pager'
complete -c zavel -n '__zavel_in look' -s n -l limit -x -d 'At most so many'
complete -c zavel -n '__zavel_in look' -l suggest -x -d 'Near headwords for a word not found'
complete -c zavel -n '__zavel_in look' -l row -x -d 'Show this row of the result list'
complete -c zavel -n '__zavel_in look' -s 0 -l null -d 'Words end in NUL'
complete -c zavel -n '__zavel_in look' -l color -x -a 'auto always never' -d 'Colours'
complete -c zavel -n '__zavel_in look' -a '(__zavel_headwords)'
complete -c zavel -n '__zavel_words dict' -a 'build verify info'
complete -c zavel -n '__zavel_words dict build' -l if-missing -d 'Make only what is missing'
complete -c zavel -n '__zavel_words dict build' -s q -l quiet -d 'No summary'
complete -c zavel -n '__zavel_words dict build' -l progress -x -a 'auto bar plain json none' -d 'Progress'
complete -c zavel -n '__zavel_words prefs' -a dict
complete -c zavel -n '__zavel_words prefs dict' -a 'list enable disable move'
for command in enable disable move
    complete -c zavel -n "__zavel_words prefs dict $command" -a 'bilingual translation'
end
complete -c zavel -n '__zavel_words help' -a 'look dict prefs paths about'
complete -c zavel -n '__zavel_words help dict' -a 'build verify info'
complete -c zavel -n '__zavel_words help prefs' -a dict
complete -c zavel -n '__zavel_words help prefs dict' -a 'list enable disable move'
