# Completion of veridane for fish.

# The homes on the volume that is named so far.
function __veridane_homes
    set -l words (commandline -opc)
    set -l volume ''
    if set -l place (contains -i -- --volume $words)
        set volume $words[(math $place + 1)]
    else if set -l word (string match -- '--volume=*' $words)
        set volume (string replace -- --volume= '' $word[-1])
    end
    set volume (string replace -r -- '^~' ~ $volume | string replace -r '/$' '')
    for home in $volume/Users/*/
        string replace -- $volume '' $home | string match -v '*/Shared/' | string replace -r '/$' ''
    end
end

complete -c veridane -f
complete -c veridane -s h -l help -d 'Tell how to use the program'
complete -c veridane -l version -d 'Tell the version'
complete -c veridane -l volume -x -a '(__fish_complete_directories)' -d 'Root folder of the Mac to examine'
complete -c veridane -l home -x -a '(__veridane_homes)' -d 'A home folder on the volume'
