# complete.zsh FOLDER LINE: the line in an interactive zsh after a press of the tab key. FOLDER has _oructl.
zmodload zsh/zpty
zpty shell zsh -f -i
zpty -w shell "fpath=(${(q)1} \$fpath); autoload -U compinit; compinit -u -D
    show() { print -r -- \"<\$BUFFER>\"; BUFFER= }
    zle -N show; bindkey '^X' show; print READY:\$((6*7))"
zpty -r shell out '*READY:42*'
zpty -w -n shell "$2"$'\t\x18'
zpty -r shell out '*<*>*'
print -r -- "${${out##*<}%%>*}"
