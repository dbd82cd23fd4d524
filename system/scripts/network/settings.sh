# shellcheck shell=sh
# The daemon's own settings, read from the daemon's own file by the daemon's own rules, so that both
# always mean the same files.

configuration=${TESSARAD_CONF:-/etc/veltrano/tessarad.conf}

# read_setting KEY: sets value to that of "Group/key", or refuses the run when there is none.
read_setting() {
    if ! [ -r "$configuration" ] || ! [ -f "$configuration" ]; then
        complain "The daemon's configuration file $configuration can't be read."
        refuse "$NOT_SET_UP"
    fi
    value=$(setting_in_file "$1")
    if [ -z "$value" ]; then
        complain "The setting $1 is missing in $configuration."
        refuse "$NOT_SET_UP"
    fi
}

# The key ends at the first blank or equals sign, the rest of the trimmed line is the value, and of two
# equal keys the later counts.
setting_in_file() {
    wanted=$1 awk '
        { gsub(/^[ \t\r\v\f]+|[ \t\r\v\f]+$/, "") }
        /^[#;]/ { next }
        /^\[.*\]$/ { section = substr($0, 2, length($0) - 2); next }
        match($0, /[ \t\r\v\f=]/) && section "/" substr($0, 1, RSTART - 1) == ENVIRON["wanted"] {
            value = substr($0, RSTART + 1)
        }
        END { print value }' "$configuration"
}
