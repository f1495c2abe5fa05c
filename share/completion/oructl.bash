# Completion of oructl for bash. The program knows what fits; this asks it.

# Joins again what bash has cut at ':' and '='. Sets words, the words before the cursor without
# quotes, and raw, the one at the cursor.
_oructl_words() {
    local rest=${COMP_LINE:0:COMP_POINT} i
    words=() raw=
    rest=${rest#"${rest%%[![:space:]]*}"}
    rest=${rest#"${COMP_WORDS[0]}"}
    for ((i = 1; i <= COMP_CWORD; i++)); do
        if [[ $rest == [[:space:]]* ]]; then
            ((i > 1)) && words+=("${raw//[\"\'\\]/}")
            rest=${rest#"${rest%%[![:space:]]*}"} raw=
        fi
        raw+=${rest:0:${#COMP_WORDS[i]}}
        rest=${rest:${#COMP_WORDS[i]}}
    done
}

_oructl() {
    local -a words
    local raw cut= line
    _oructl_words
    local current=${raw//[\"\'\\]/}
    # Outside of quotes bash replaces only what stands behind the last ':' or '='.
    if [[ $raw == *[:=]* && $raw != *[\"\']* && $COMP_WORDBREAKS == *:* ]]; then
        cut=${current%"${current##*[:=]}"}
    fi
    COMPREPLY=()
    while IFS=$'\t' read -r line _; do
        case $line in
        :files) compopt -o default ;;
        :folders) compopt -o dirnames ;;
        :@files)
            [[ $current == @* ]] || continue
            compopt -o filenames -o nospace
            mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -P @ -- "${current#@}")
            ;;
        *) COMPREPLY+=("${line#"$cut"}") ;;
        esac
    done < <("$1" --complete "$current" "${words[@]}" 2>/dev/null)
}

complete -F _oructl oructl
