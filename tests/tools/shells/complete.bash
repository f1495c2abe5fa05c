# complete.bash SCRIPT WORD...: what bash offers behind the words, cut as bash cuts a line: the line is
# all that was typed, and each word of COMP_WORDS an argument of its own.
source "$1"
COMP_LINE=$2
COMP_POINT=${#COMP_LINE}
COMP_WORDS=("${@:3}")
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
compopt() { echo "compopt $*"; }
_oructl oructl
[ "${#COMPREPLY[@]}" = 0 ] || printf '%s\n' "${COMPREPLY[@]}"
