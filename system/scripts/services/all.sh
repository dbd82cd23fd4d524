# shellcheck shell=sh
# What listservices, servicestate, startstopservice and enableservice share: which services there are, and
# the refusal of all others. Two of them run with root's rights on names that come from the network.

# Names are compared byte by byte, and systemctl speaks plainly.
export LC_ALL=C SYSTEMD_COLORS=0

# sudo drops both variables, so only a caller with root's rights of its own can point elsewhere.
groups=${TESSARAD_SERVICES:-/etc/veltrano-services}
units=${TESSARAD_UNIT_DIR:-/etc/systemd/system}

# Exit codes; 1 is systemd's refusal.
WRONG_ARGUMENTS=2
NOT_LISTED=3
NOT_POSSIBLE=4

# Ends the run with one sentence on standard error. $1: exit code.
refuse() {
    printf '%s: %s\n' "${0##*/}" "$2" >&2
    exit "$1"
}

# The names in the given group files, in their order.
services_in() {
    awk -f "$here/services/names.awk" -- "$@"
}

# The names in all the group files. Editors' copies aren't groups.
all_services() {
    set --
    for file in "$groups"/*; do
        case ${file##*/} in
            *[!a-z0-9-]*) continue ;;
        esac
        [ ! -f "$file" ] || set -- "$@" "$file"
    done
    [ $# -eq 0 ] || services_in "$@"
}

# A text of the caller in quotes, short and harmless.
quoted() {
    printf '"%s"' "$(printf %s "$1" | tr -c ' -~' '?' | cut -c 1-64)"
}

is_template() {
    case $1 in
        *@) return 0 ;;
        *) return 1 ;;
    esac
}

# True for a listed name and for an instance of a listed template. A listed name has been checked already,
# an instance's own part has to be checked here.
is_listed() {
    newline='
'
    known=$newline$(all_services 2>/dev/null)$newline
    case $1 in
        "" | *[!A-Za-z0-9:_.\\@-]*) return 1 ;;
    esac
    case $known in
        *"$newline$1$newline"*) return 0 ;;
    esac
    case $1 in
        *@*@* | *.service* | *@) return 1 ;;
        *@*) ;;
        *) return 1 ;;
    esac
    # With ".service", systemd takes 255 characters.
    [ "${#1}" -le 247 ] || return 1
    case $known in
        *"$newline${1%%@*}@$newline"*) return 0 ;;
    esac
    return 1
}

require_listed() {
    is_listed "$1" || refuse "$NOT_LISTED" "$(quoted "$1") is no listed service; $groups holds the lists."
}
