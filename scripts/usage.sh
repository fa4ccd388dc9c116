# For the scripts beside it, which source it first: --help prints the comment at their head, and
# wrong_usage ends them with it.
script=$(realpath "$0")
usage() {
    sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$script"
}
wrong_usage() {
    usage >&2
    exit 2
}
case "${1:-}" in
    -h | --help) usage; exit 0 ;;
esac
