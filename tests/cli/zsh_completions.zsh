# What zsh offers for command lines: zsh_completions.zsh SCRIPT FOLDER < LINES
# Prints "# LINE", then each word that is offered, as a person at a terminal would be offered it.
zmodload zsh/zpty
script=$1 results=$(mktemp)
lines=("${(@f)$(<&0)}")
cd $2

zpty terminal zsh -f -i || exit
zpty -w terminal "PS1= script=${(q)script} results=${(q)results} lines=(${(@q)lines})"
zpty -w terminal 'autoload -U compinit; compinit -u -D; source $script'
zpty -w terminal 'compadd() {
    if [[ ${@[1,(i)(-|--)]} != *-(O|A|D)\ * ]]; then
        local -a offered
        builtin compadd -A offered "$@"
        print -rl -- $offered >> $results
    fi
    builtin compadd "$@"
}'
zpty -w terminal 'complete-all() {
    for line in $lines; do
        print -r -- "# $line" >> $results
        BUFFER=$line CURSOR=$#line
        zle offer
    done
    print -n "\a\a"
}'
zpty -w terminal 'zle -C offer list-choices _main_complete; zle -N complete-all; bindkey "^X" complete-all'
zpty -w terminal 'print -r -- "# ready" > $results'
until [[ -s $results ]]; do zpty -t terminal || exit; sleep 0.05; done
zpty -w -n terminal $'\C-x'
zpty -r terminal ignored $'*\a\a*'
zpty -d terminal
sed 1d $results
rm $results
