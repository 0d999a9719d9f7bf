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
        else if contains -- $word --root --mode --color --progress --limit -n --suggest --row --lang --pos --format --number --phrase --kanji --reading --example --sentence --set --method --dict -d --output -o --form --source --title
            set valued 1
        else if not string match -q -- '-*' "$word"
            echo $word
        end
    end
end

# Whether these are all words so far, or the first of them.
function __zavel_words
    set -l line (__zavel_line)
    test "$line" = "$argv"
end
function __zavel_in
    set -l line (__zavel_line)
    set -l length (count $argv)
    test "$line[1..$length]" = "$argv"
end

# Places in the list of dictionaries.
function __zavel_positions
    zavel (__zavel_root) prefs dict list 2>/dev/null | string match -r '^\d+'
end

# Names of books.
function __zavel_books
    zavel (__zavel_root) book list --plain 2>/dev/null | cut -f1
end

complete -c zavel -f
complete -c zavel -n __zavel_words -a look -d 'Look words up'
complete -c zavel -n __zavel_words -a dict -d 'Make, check and describe the dictionary'
complete -c zavel -n __zavel_words -a prefs -d 'Show and change preferences'
complete -c zavel -n __zavel_words -a user -d 'Your own entries'
complete -c zavel -n __zavel_words -a book -d 'Electronic books'
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
for dictionary in bilingual translation
    complete -c zavel -n "__zavel_words prefs dict move $dictionary" -a '(__zavel_positions)'
end
complete -c zavel -n '__zavel_words help' -a 'look dict prefs user book paths about'
complete -c zavel -n '__zavel_words help dict' -a 'build verify info'
complete -c zavel -n '__zavel_words help prefs' -a dict
complete -c zavel -n '__zavel_words help user' -a 'add edit find list delete arrange import export'
complete -c zavel -n '__zavel_words help prefs dict' -a 'list enable disable move'
complete -c zavel -n '__zavel_words user' -a 'add edit find list delete arrange import export'
complete -c zavel -n '__zavel_in user' -l lang -x -a 'en ja' -d 'Dictionary'
for command in edit find delete
    complete -c zavel -n "__zavel_words user $command" -a '(zavel (__zavel_root) user list -- (commandline -ct) 2>/dev/null)'
end
for command in import export
    complete -c zavel -n "__zavel_words user $command" -F
end
complete -c zavel -n '__zavel_in user add' -l pos -x -a 'noun pronoun adjective adverb verb transitive intransitive preposition conjunction' -d 'Part of speech'
complete -c zavel -n '__zavel_in user add' -l phrase -x -d 'The meaning is that of this phrase'
complete -c zavel -n '__zavel_in user add' -l kanji -x -d 'Written form of a word in kana'
complete -c zavel -n '__zavel_in user add' -l reading -x -d 'Reading of a word in kanji'
complete -c zavel -n '__zavel_in user add' -l example -x -d 'ENGLISH=JAPANESE'
complete -c zavel -n '__zavel_in user add' -l sentence -x -d 'ENGLISH=JAPANESE'
complete -c zavel -n '__zavel_in user add' -s f -l force -d 'Also if it is there already'
for command in edit delete
    complete -c zavel -n "__zavel_in user $command" -l number -x -d 'Which of its entries'
    complete -c zavel -n "__zavel_in user $command" -l no-input -d 'Never ask'
end
complete -c zavel -n '__zavel_in user edit' -l set -x -d 'FIELD=TEXT'
complete -c zavel -n '__zavel_in user delete' -l all -d 'All of its entries'
complete -c zavel -n '__zavel_in user delete' -s y -l yes -d "Don't ask"
complete -c zavel -n '__zavel_in user arrange' -l accept -d 'Take entries as they stand'
complete -c zavel -n '__zavel_in user import' -l replace -d 'Replace your entry of the same word'
complete -c zavel -n '__zavel_in user import' -l skip-existing -d 'Leave out words that are there'
complete -c zavel -n '__zavel_in user import' -s f -l force -d 'Also what is there already'
complete -c zavel -n '__zavel_in user import' -l progress -x -a 'auto bar plain json none' -d 'Progress'
complete -c zavel -n '__zavel_in user export' -l format -x -a 'tsv json jsonl' -d 'Form'
complete -c zavel -n '__zavel_words book' -a 'build list info search show next prev menu multi gaiji picture sound icon'
complete -c zavel -n '__zavel_words help book' -a 'build list info search show next prev menu multi gaiji picture sound icon'
for command in info show next prev menu multi gaiji picture sound icon
    complete -c zavel -n "__zavel_words book $command" -a '(__zavel_books)'
end
for command in list search multi
    complete -c zavel -n "__zavel_in book $command" -l plain -d 'One record a line'
end
complete -c zavel -n '__zavel_in book search' -l method -x -a 'exact forward backward keyword cross' -d 'How'
complete -c zavel -n '__zavel_in book search' -l query -d 'Each word is a query'
complete -c zavel -n '__zavel_in book search' -s d -l dict -x -a '(__zavel_books)' -d 'Search in this book'
complete -c zavel -n '__zavel_in book search' -s 0 -l null -d 'Words end in NUL'
for command in search show next prev multi
    complete -c zavel -n "__zavel_in book $command" -s n -l limit -x -d 'At most so many'
end
for command in show next prev
    complete -c zavel -n "__zavel_in book $command" -l raw -d 'Words as they are'
end
for command in search show next prev menu multi gaiji
    complete -c zavel -n "__zavel_in book $command" -l no-pager -d 'No pager'
end
for command in search show next prev menu multi gaiji picture sound icon
    complete -c zavel -n "__zavel_in book $command" -l color -x -a 'auto always never' -d 'Colours'
end
for command in gaiji picture sound icon
    complete -c zavel -n "__zavel_in book $command" -s o -l output -r -F -d 'Write it to this file'
end
complete -c zavel -n '__zavel_in book gaiji' -l half -d 'Half width'
complete -c zavel -n '__zavel_in book icon' -l small -d 'The small one'
complete -c zavel -n '__zavel_in book sound' -l play -d 'Play it'
complete -c zavel -n '__zavel_in book build' -l all -d 'Of every dictionary that is installed'
complete -c zavel -n '__zavel_in book build' -l list -d 'What books can be made from'
complete -c zavel -n '__zavel_in book build' -l form -x -a 'dictd edict kanjidic text' -d 'Form of a source'
complete -c zavel -n '__zavel_in book build' -l source -r -F -d 'Its file'
complete -c zavel -n '__zavel_in book build' -l title -x -d 'Title'
complete -c zavel -n '__zavel_in book build' -l if-missing -d 'Make only what is missing'
complete -c zavel -n '__zavel_in book build' -l verify -d 'Compare with the source'
complete -c zavel -n '__zavel_in book build' -s q -l quiet -d 'No summary'
complete -c zavel -n '__zavel_in book build' -l progress -x -a 'auto bar plain json none' -d 'Progress'
complete -c zavel -n '__zavel_in book menu' -l pictures -d 'The menu of pictures'
