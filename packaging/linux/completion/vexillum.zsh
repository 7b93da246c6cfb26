#compdef vexillum
# Completes the command line of vexillum in zsh.

# What Vexillum knows of the directory that the line speaks of; beside an open window nobody waits for it.
_vexillum_list() {
    local -a directory
    [[ -n ${opt_args[--directory]} ]] && directory=(--directory ${(Q)opt_args[--directory]})
    timeout 1 $words[1] --list --json $directory 2>/dev/null
}

_vexillum_sets() {
    local -a names
    names=(${(f)"$(_vexillum_list | sed -n '/^  "sets": \[$/,/^  \]/s/^    "\(.*\)",\{0,1\}$/\1/p' |
        sed 's/\\\(.\)/\1/g')"})
    compadd -a names
}

_vexillum_releases() {
    local -a names
    names=(${(f)"$(_vexillum_list | sed -n '/^  "releases": \[$/,/^  \]/p' |
        sed -n "/^      \"type\": \"${1:-$opt_args[--type]}\",\$/I{n;s/^      \"name\": \"\\(.*\\)\",\\{0,1\\}\$/\\1/p}" |
        sed 's/\\\(.\)/\1/g')"})
    compadd -a names
}

_vexillum_assignment() {
    local key=${PREFIX%%=*}
    if ! compset -P '*='; then
        compadd -S '' -- tc= ai= {race,mod,map,unit}{=,+=,-=} modifier= compress= small= wrapper=
        return
    fi
    case $key in
    modifier | compress | small) compadd on off ;;
    wrapper) _command_names -e ;;
    *) _vexillum_releases ${key%[+-]} ;;
    esac
}

local directory='--directory=[the game directory]:directory:_directories'
local type='--type=[its type]:type:(TC AI Race Mod Map Unit)'
local json='--json[tells it as one JSON document]'
local -a answer
answer=('(--no)--yes[answers every open question with Yes]' '(--yes)--no[answers every open question with No]')
local verb=${words[(r)--(list|plan|apply|launch|reset|add|remove|set|check|setup|directories|version|help)]}

case $verb in
--list) _arguments '--list' $json $directory ;;
--check) _arguments '--check' $json $directory ;;
--plan) _arguments '--plan' $json $directory '::set:_vexillum_sets' ;;
--apply) _arguments '--apply' $answer $directory '::set:_vexillum_sets' ;;
--launch)
    _arguments '--launch' '--wait[waits until the game has ended, then resets]' $answer $directory \
        '::set:_vexillum_sets'
    ;;
--reset) _arguments '--reset' $directory ;;
--setup) _arguments '--setup' $directory ;;
--directories) _arguments '--directories' $json ;;
--add) _arguments '--add' $type '--name=[its name]:name:' $answer $directory ':file:_files' ;;
--remove) _arguments '--remove' $type $answer $directory ':release:_vexillum_releases' ;;
--set) _arguments '--set' $directory '*:assignment:_vexillum_assignment' ;;
--version | --help) ;;
*)
    _arguments $directory \
        '--list[tells all releases, what is chosen of them, and the sets]' \
        '--plan[tells what a launch would do, and changes nothing]' \
        '--apply[moves the chosen releases into the game directory]' \
        '--launch[the same, then starts the game]' \
        '--reset[moves every file of the last launch back]' \
        '--add[adds a release out of a folder, a file or a zip archive]' \
        '--remove[removes a release for good]' \
        '--set[changes the saved selection]' \
        '--check[looks whether all is where it should be]' \
        '--setup[makes a game directory ready]' \
        '--directories[tells the game directories that were used]' \
        '--version[tells the version]' \
        '--help[tells all commands and options]'
    ;;
esac
