# Completion of veridane and veridane-cli for the bash. Files and folders are left to the shell
# itself, which knows how to quote them.

# Offers the homes on the volume that is named so far.
_veridane_offer_homes() {
    local volume= home index
    for ((index = 1; index < COMP_CWORD; index++)); do
        [[ ${COMP_WORDS[index]} == --volume ]] || continue
        volume=${COMP_WORDS[index + 1]}
        [[ $volume == = ]] && volume=${COMP_WORDS[index + 2]}
    done
    volume=${volume/#\~/$HOME}
    volume=${volume%/}
    for home in "$volume"/Users/*/; do
        home=${home#"$volume"}
        [[ -d $volume$home && $home == "$current"* && $home != */Shared/ ]] || continue
        COMPREPLY+=("$(printf '%q' "${home%/}")")
    done
}

# Offers those of the words that begin like what is typed.
_veridane_offer() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$current")
}

# The same with what is typed behind the last comma.
_veridane_offer_list() {
    local listed= current=$current
    if [[ $current == *,* ]]; then
        listed=${current%,*},
        current=${current##*,}
    fi
    _veridane_offer "$1"
    COMPREPLY=("${COMPREPLY[@]/#/$listed}")
    compopt -o nospace 2>/dev/null
}

_veridane() {
    local current=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]}
    local command=${COMP_WORDS[1]}
    [[ ${1##*/} == veridane-cli ]] || command=window
    # The shell splits "--format=json" in three.
    if [[ $current == = ]]; then
        current=
    elif [[ $option == = ]]; then
        option=${COMP_WORDS[COMP_CWORD - 2]}
    fi

    COMPREPLY=()
    case $option in
        --volume)
            compopt -o dirnames 2>/dev/null
            return ;;
        --home)
            _veridane_offer_homes
            return ;;
        --language)
            _veridane_offer "de en"
            return ;;
        --include | --exclude)
            _veridane_offer_list "applications system-apps command-line-tools launch-services
                audio-plugins extensions"
            return ;;
        --format)
            case $command in
                scan) _veridane_offer "summary csv json markdown snapshot" ;;
                inspect) _veridane_offer "text json" ;;
            esac
            return ;;
        --fail-on)
            _veridane_offer "attention"
            return ;;
        -o | --output)
            compopt -o default 2>/dev/null
            return ;;
    esac

    case $command in
        window) _veridane_offer "-h --help --version --volume --home" ;;
        scan)
            _veridane_offer "-h --help --version --volume --language --home --include --exclude
                --format -o --output --check-updates --fail-on --no-progress" ;;
        inspect)
            if [[ $current == -* ]]; then
                _veridane_offer "-h --help --version --volume --language --format"
            else
                compopt -o default 2>/dev/null
            fi ;;
        *) _veridane_offer "scan inspect -h --help --version" ;;
    esac
}

complete -F _veridane veridane veridane-cli
