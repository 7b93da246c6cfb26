# Completes the command line of vexillum in fish.

# What Vexillum knows of the directory that the line speaks of; beside an open window nobody waits for it.
function __vexillum_list
    set -l words (commandline -opc)
    set -l directory
    for i in (seq 2 (count $words))
        switch $words[$i]
            case --directory
                set directory --directory $words[(math $i + 1)]
            case '--directory=*'
                set directory $words[$i]
        end
    end
    timeout 1 $words[1] --list --json $directory 2>/dev/null
end

function __vexillum_sets
    __vexillum_list | sed -n '/^  "sets": \[$/,/^  \]/s/^    "\(.*\)",\{0,1\}$/\1/p' | sed 's/\\\\\(.\)/\1/g'
end

function __vexillum_releases # TYPE
    __vexillum_list | sed -n '/^  "releases": \[$/,/^  \]/p' |
        sed -n "/^      \"type\": \"$argv[1]\",\$/I{n;s/^      \"name\": \"\\(.*\\)\",\\{0,1\\}\$/\\1/p}" |
        sed 's/\\\\\(.\)/\1/g'
end

# The releases of the type that --type names.
function __vexillum_of_type
    set -l words (commandline -opc)
    set -l at (contains -i -- --type $words); and __vexillum_releases $words[(math $at + 1)]
    for word in (string match -- '--type=*' $words)
        __vexillum_releases (string replace -- --type= '' $word)
    end
end

function __vexillum_assignments
    printf '%s\n' {modifier,compress,small}={on,off} wrapper=
    for type in tc ai
        printf "$type=%s\n" (__vexillum_releases $type)
    end
    for type in race mod map unit
        for sign in = += -=
            printf "$type$sign%s\n" (__vexillum_releases $type)
        end
    end
end

set -l verbs list plan apply launch reset add remove set check setup directories version help
set -l none 'not __fish_contains_opt '(string join ' ' $verbs)
complete -c vexillum -f
complete -c vexillum -n "$none" -l list -d 'All releases, what is chosen of them, and the sets'
complete -c vexillum -n "$none" -l plan -d 'What a launch would do'
complete -c vexillum -n "$none" -l apply -d 'Move the chosen releases into the game directory'
complete -c vexillum -n "$none" -l launch -d 'The same, then start the game'
complete -c vexillum -n "$none" -l reset -d 'Move every file of the last launch back'
complete -c vexillum -n "$none" -l add -d 'Add a release out of a folder, a file or a zip archive'
complete -c vexillum -n "$none" -l remove -d 'Remove a release for good'
complete -c vexillum -n "$none" -l set -d 'Change the saved selection'
complete -c vexillum -n "$none" -l check -d 'Look whether all is where it should be'
complete -c vexillum -n "$none" -l setup -d 'Make a game directory ready'
complete -c vexillum -n "$none" -l directories -d 'The game directories that were used'
complete -c vexillum -n "$none" -l version -d 'The version'
complete -c vexillum -n "$none" -l help -d 'All commands and options'
complete -c vexillum -n 'not __fish_contains_opt directories version help' -l directory -x \
    -a '(__fish_complete_directories)' -d 'The game directory'
complete -c vexillum -n '__fish_contains_opt list plan check directories' -l json -d 'As one JSON document'
complete -c vexillum -n '__fish_contains_opt launch' -l wait -d 'Wait for the game to end, then reset'
complete -c vexillum -n '__fish_contains_opt apply launch add remove' -l yes -d 'Answer Yes to every question'
complete -c vexillum -n '__fish_contains_opt apply launch add remove' -l no -d 'Answer No to every question'
complete -c vexillum -n '__fish_contains_opt add remove' -l type -x -a 'TC AI Race Mod Map Unit' -d 'Its type'
complete -c vexillum -n '__fish_contains_opt add' -l name -x -d 'Its name'
complete -c vexillum -n '__fish_contains_opt add' -F
complete -c vexillum -n '__fish_contains_opt plan apply launch' -a '(__vexillum_sets)' -d Set
complete -c vexillum -n '__fish_contains_opt remove' -a '(__vexillum_of_type)' -d Release
complete -c vexillum -n '__fish_contains_opt set' -a '(__vexillum_assignments)'
