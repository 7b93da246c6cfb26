# Completes the command line of vexillum in bash.                                       -*- sh -*-

# A word of the line without its quotes. Nothing in it is run.
_vexillum_plain() {
    local word=${1//[\"\'\\]/}
    printf %s "${word/#\~\//$HOME/}"
}

# What Vexillum knows of the directory that the line speaks of, as JSON. Beside an open window nothing
# is known at once, and nobody waits for it.
_vexillum_list() {
    local i directory=()
    for ((i = 1; i < ${#words[@]}; i++)); do
        case ${words[i]} in
        --directory) directory=(--directory "$(_vexillum_plain "${words[i + 1]-}")") ;;
        --directory=*) directory=(--directory "$(_vexillum_plain "${words[i]#*=}")") ;;
        esac
    done
    timeout 1 "${words[0]}" --list --json "${directory[@]}" 2>/dev/null
}

# Names of sets, or of the releases of a type.
_vexillum_sets() {
    _vexillum_list | sed -n '/^  "sets": \[$/,/^  \]/s/^    "\(.*\)",\{0,1\}$/\1/p' | sed 's/\\\(.\)/\1/g'
}
_vexillum_releases() { # TYPE
    _vexillum_list | sed -n '/^  "releases": \[$/,/^  \]/p' |
        sed -n "/^      \"type\": \"$1\",\$/I{n;s/^      \"name\": \"\\(.*\\)\",\\{0,1\\}\$/\\1/p}" |
        sed 's/\\\(.\)/\1/g'
}

# Offers the lines of the input that begin with what was typed behind HEAD, quoted for the shell.
_vexillum_offer() { # HEAD
    local head=$1 typed=${cur#"$1"} quote='' name
    case $typed in
    [\"\']*) quote=${typed:0:1} typed=${typed:1} ;;
    *) typed=${typed//\\/} ;;
    esac
    # Readline itself takes the equals sign for the end of a word.
    [[ $head == *= && $COMP_WORDBREAKS == *=* ]] && head=''
    while IFS= read -r name; do
        [[ $name == "$typed"* ]] || continue
        [ -n "$quote" ] || printf -v name %q "$name"
        COMPREPLY+=("$head$name")
    done
}

# The type that --type names on this line.
_vexillum_type() {
    local i
    for ((i = 1; i < ${#words[@]}; i++)); do
        case ${words[i]} in
        --type) echo "${words[i + 1]-}" ;;
        --type=*) echo "${words[i]#*=}" ;;
        esac
    done
}

_vexillum_options() { # VERB
    case $1 in
    list | plan | check) echo --json --directory ;;
    directories) echo --json ;;
    apply) echo --yes --no --directory ;;
    launch) echo --wait --yes --no --directory ;;
    reset | set | setup) echo --directory ;;
    add) echo --type --name --yes --no --directory ;;
    remove) echo --type --yes --no --directory ;;
    version | help) ;;
    *)
        echo --list --plan --apply --launch --reset --add --remove --set --check --setup \
            --directories --version --help --directory
        ;;
    esac
}

_vexillum_operand() { # VERB
    local key
    case $1 in
    plan | apply | launch) _vexillum_offer '' < <(_vexillum_sets) ;;
    remove) _vexillum_offer '' < <(_vexillum_releases "$(_vexillum_type)") ;;
    add) _filedir ;;
    set)
        key=${cur%%=*}
        case $cur in
        wrapper=*) ;;
        modifier=* | compress=* | small=*) COMPREPLY=($(compgen -W 'on off' -- "${cur#*=}")) ;;
        *=*) _vexillum_offer "$key=" < <(_vexillum_releases "${key%[+-]}") ;;
        *)
            compopt -o nospace
            COMPREPLY=($(compgen -W 'tc= ai= race= mod= map= unit= race+= mod+= map+= unit+= race-= mod-=
                map-= unit-= modifier= compress= small= wrapper=' -- "$cur"))
            ;;
        esac
        ;;
    esac
}

_vexillum() {
    local cur prev words cword split verb='' word
    _init_completion -s || return
    for word in "${words[@]:1:cword-1}"; do
        case $word in
        --list | --plan | --apply | --launch | --reset | --add | --remove | --set | --check | --setup | \
            --directories | --version | --help)
            verb=${word#--}
            ;;
        esac
    done
    case $prev in
    --directory) _filedir -d && return || return ;;
    --type) COMPREPLY=($(compgen -W 'TC AI Race Mod Map Unit' -- "$cur")) && return || return ;;
    --name) return ;;
    esac
    if [[ $cur == -* || -z $verb ]]; then
        COMPREPLY=($(compgen -W "$(_vexillum_options "$verb")" -- "$cur"))
    else
        _vexillum_operand "$verb"
    fi
}
complete -F _vexillum vexillum
