# Completion of veridane-cli for fish.
source (status dirname)/veridane.fish

# What is typed up to the last comma, with each category behind it.
function __veridane_categories
    set -l listed (commandline -ct | string replace -r '^--(in|ex)clude=' '' | string match -r '.*,')
    for category in applications system-apps command-line-tools launch-services audio-plugins extensions
        echo "$listed$category"
    end
end

set -l scan '__fish_seen_subcommand_from scan'
set -l inspect '__fish_seen_subcommand_from inspect'
set -l both '__fish_seen_subcommand_from scan inspect'

complete -c veridane-cli -n "not $inspect" -f
complete -c veridane-cli -n "not $both" -a scan -d 'Examine a Mac'
complete -c veridane-cli -n "not $both" -a inspect -d 'Judge single files or bundles'
complete -c veridane-cli -s h -l help -d 'Tell how to use the program'
complete -c veridane-cli -l version -d 'Tell the version'
complete -c veridane-cli -n $both -l volume -x -a '(__fish_complete_directories)' -d 'Root folder of the Mac to examine'
complete -c veridane-cli -n $both -l language -x -a 'de en' -d 'Language of the results'
complete -c veridane-cli -n $inspect -l format -x -a 'text json' -d 'Form of the result'
complete -c veridane-cli -n $scan -l format -x -a 'summary csv json markdown snapshot' -d 'Form of the result'
complete -c veridane-cli -n $scan -l home -x -a '(__veridane_homes)' -d 'A home folder on the volume'
complete -c veridane-cli -n $scan -l include -x -a '(__veridane_categories)' -d 'Categories to scan'
complete -c veridane-cli -n $scan -l exclude -x -a '(__veridane_categories)' -d 'Categories to leave out'
complete -c veridane-cli -n $scan -s o -l output -r -F -d 'Write the result to a file'
complete -c veridane-cli -n $scan -l check-updates -d 'Ask for newer versions'
complete -c veridane-cli -n $scan -l fail-on -x -a attention -d 'Exit with 1 if something needs attention'
complete -c veridane-cli -n $scan -l no-progress -d 'No progress bar on the terminal'
