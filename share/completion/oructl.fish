# Completion of oructl for fish. The program knows what fits; this asks it.

function __oructl_candidates
    set -l current (commandline -ct)
    set -l before (commandline -opc)
    for line in ($before[1] --complete "$current" $before[2..] 2>/dev/null)
        switch $line
            case :files
                __fish_complete_path "$current"
            case :folders
                __fish_complete_directories "$current" ""
            case :@files
                string match -q '@*' -- $current; or continue
                string replace -r '^' @ (__fish_complete_path (string sub -s 2 -- $current))
            case '*'
                echo $line
        end
    end
end

complete -c oructl -f -a '(__oructl_candidates)'
