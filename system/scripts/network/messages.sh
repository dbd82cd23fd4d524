# shellcheck shell=sh
# What the user reads: plain sentences, and as the last line the outcome in a fixed form. No passphrase
# is ever printed, and nothing that comes from outside can begin a line.

# Exit codes; 0 is ROLLBACK, CONFIRMED and UNCHANGED.
WRONG_ARGUMENTS=2
NOT_SET_UP=3
BUSY=4
RESTORED=5
FAILED=6

complaints=0

say() {
    printf '%s\n' "$1"
}

# One thing that is wrong; the run goes on to find the others.
complain() {
    complaints=$((complaints + 1))
    say "$1"
}

# Ends the run before it has changed anything. $1: exit code.
refuse() {
    say "REFUSED: nothing was changed."
    exit "$1"
}

refuse_complaints() {
    [ "$complaints" -eq 0 ] || refuse "$WRONG_ARGUMENTS"
}

# A text of the user in quotes, short and harmless.
quoted() {
    printf '"%s"' "$(printf %s "$1" | tr -c ' -~' '?' | cut -c 1-64)"
}

# What a command has printed, indented, so that it can't pass for an outcome.
indented() {
    printf '%s\n' "$1" | tr -cd '\n -~' | sed -n 's/^..*/  &/p'
}
