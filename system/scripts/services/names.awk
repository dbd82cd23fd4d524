# Reads group files: one unit name a line, with or without ".service"; "#" begins a comment. Prints each
# name once, without ".service". What can be no name is told on standard error and passed over.

{
    line = $0
    sub(/#.*/, "", line)
    gsub(/^[ \t\r]+|[ \t\r]+$/, "", line)
    sub(/\.service$/, "", line)
}

line == "" || seen[line]++ { next }

# The daemon takes every ".service" out of a unit's name and would not find such a one again.
line !~ /^[A-Za-z0-9_][A-Za-z0-9:_.\\-]*(@[A-Za-z0-9:_.\\-]*)?$/ || line ~ /\.service/ || length(line) > 247 {
    gsub(/[^ -~]/, "?", line)
    print FILENAME ":" FNR ": \"" line "\" is no unit name." | "cat >&2"
    next
}

{ print line }
