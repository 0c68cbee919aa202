# Completion of the tool's command line, for bash: commands, options, record classes, requests and
# files. What there is to choose from the tool says itself.

_quavera() {
    local line candidate
    local -a words
    # Not COMP_WORDS: bash takes the colons of an address for ends of words.
    line=${COMP_LINE:0:COMP_POINT}
    read -ra words <<< "$line"
    case $line in
        *[[:blank:]]) words+=("") ;;
    esac
    COMPREPLY=()
    while IFS= read -r candidate; do
        case $candidate in
            :files)
                compopt -o filenames
                mapfile -t COMPREPLY < <(compgen -f -- "$2")
                ;;
            :folders)
                compopt -o filenames
                mapfile -t COMPREPLY < <(compgen -d -- "$2")
                ;;
            *) COMPREPLY+=("$candidate") ;;
        esac
    done < <("$1" --complete "${words[@]:1}" 2> /dev/null)
}

complete -F _quavera quavera
