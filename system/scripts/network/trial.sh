# shellcheck shell=sh
# A change on trial: new files are in force, old ones are kept in a record, and a timer puts them back
# unless the same arguments come once more.
#
# The record $state/NETWORK.trial comes into being by one rename, before any file changes and when its
# timer already runs, and goes by one rename. A timer whose token isn't the record's does nothing. So
# whenever a run is killed, either nothing has changed or a timer of the record is running. A record's old
# files are always the confirmed ones: further trials leave them as they are. Its "arguments" are there
# only when their files are in force and have come up.

delay=${TESSARAD_ROLLBACK_S:-90}
patience=${TESSARAD_LOCK_WAIT_S:-5}
why=

# begin_change NETWORK FILE...: from here on this run is the only one. Its folder is $work.
begin_change() {
    lock_network "$1" "$patience"
    shift
    case $delay in '' | *[!0-9]* | 0*)
        complain "TESSARAD_ROLLBACK_S must be a number of seconds."
        refuse "$NOT_SET_UP"
        ;;
    esac
    # What killed runs have left.
    rm -rf "$work" "$state/$network.record" "$state/$network.over"
    mkdir "$work" || refuse "$NOT_SET_UP"
    for file; do
        if ! resolved=$(readlink -f "$file") || [ ! -d "$(dirname "$resolved")" ] || [ -d "$resolved" ]; then
            complain "There can be no file $file; its place comes from $configuration."
            refuse "$NOT_SET_UP"
        fi
        printf '%s\n' "$resolved" >>"$work/paths"
    done
    if [ -d "$record" ] && ! cmp -s "$work/paths" "$record/paths"; then
        complain "The settings name other files than those that are on trial. Try again in $delay s, or run rollbacknetwork --all."
        refuse "$NOT_SET_UP"
    fi
}

# base N: the confirmed text of file N. What is on trial is no ground to build on.
base() {
    if [ -d "$record" ]; then
        printf '%s\n' "$record/old.$1"
    else
        path "$1" "$work"
    fi
}

# copy_base N...: files that stay as they were confirmed, unless something else is made of them.
copy_base() {
    for n; do
        [ ! -e "$(base "$n")" ] || cp "$(base "$n")" "$work/new.$n" || cannot_make "$(path "$n" "$work")"
    done
}

# cannot_make FILE: the reason, where it is known, stands in "why".
cannot_make() {
    complain "$1: ${why:-its new text could not be made.}"
    refuse "$NOT_SET_UP"
}

confirm_if_repeated() {
    printf '%s\n' "$@" >"$work/arguments"
    [ -e "$record/arguments" ] || return 0
    cmp -s "$work/arguments" "$record/arguments" || return 0
    forget_record || refuse "$NOT_SET_UP"
    rm -rf "$work"
    say "CONFIRMED: the new settings are kept."
    exit 0
}

# The record goes first, so that a timer which fires right now finds nothing to do.
forget_record() {
    rm -rf "$state/$network.over"
    token=$(cat "$record/token")
    mv "$record" "$state/$network.over" || return
    stop_timer "$token"
    rm -rf "$state/$network.over"
}

# Whether the new texts are those of FOLDER's old.N, or of the files themselves.
nothing_new() {
    n=0
    while IFS= read -r file; do
        n=$((n + 1))
        [ -z "$1" ] || file=$1/old.$n
        same "$work/new.$n" "$file" || return
    done <"$work/paths"
}

try_new_files() {
    revert=
    if [ ! -d "$record" ]; then
        if nothing_new ''; then
            rm -rf "$work"
            say "UNCHANGED: these settings are in force already."
            exit 0
        fi
    elif nothing_new "$record"; then
        revert=yes
    fi
    if ! stage "$work" new; then
        unstage "$work"
        complain "The new files can't be written beside the old ones."
        refuse "$NOT_SET_UP"
    fi
    arm || give_up_arming
    take_down "$record" "$work/new.2"
    if ! switch "$work" || ! bring_up "$record"; then
        go_back
    fi
    finish_trial
}

# Has the record and its timer ready. A record that is there keeps its files and gets a timer anew.
arm() {
    read -r token </proc/sys/kernel/random/uuid
    if [ -d "$record" ]; then
        renew_timer && rm -f "$record/arguments"
        return
    fi
    fresh=$state/$network.record
    mkdir "$fresh" && cp "$work/paths" "$fresh/paths" && keep_old "$fresh" || return
    printf '%s\n' "$token" >"$fresh/token" && start_timer "$token" && mv "$fresh" "$record"
}

give_up_arming() {
    unstage "$work"
    complain "The timer that would put the old files back can't be started."
    refuse "$NOT_SET_UP"
}

# The new timer runs before the old one stops.
renew_timer() {
    old_token=$(cat "$record/token")
    start_timer "$token" || return
    printf '%s\n' "$token" >"$record/token.new" && mv "$record/token.new" "$record/token" || return
    stop_timer "$old_token"
}

# The time for the confirmation counts from now, not from before the links came up.
finish_trial() {
    if [ "$revert" ]; then
        forget_record
        rm -rf "$work"
        say "CONFIRMED: the settings are again those from before the trial."
        exit 0
    fi
    read -r token </proc/sys/kernel/random/uuid
    if ! renew_timer || ! mv "$work/arguments" "$record/arguments"; then
        go_back
    fi
    rm -rf "$work"
    say "ROLLBACK $delay s: the settings are on trial, confirm within $delay s by sending the same ones again, else the old ones come back."
    exit 0
}

# Puts the confirmed files back at once.
go_back() {
    unstage "$work"
    say "The new settings did not come up. The old ones are put back."
    rm -f "$record/arguments"
    if ! restore; then
        say "FAILED: the old files can't be put back. It is tried once more within $delay s."
        exit "$FAILED"
    fi
    bring_up "$record"
    came_up=$?
    forget_record
    rm -rf "$work"
    if [ "$came_up" -ne 0 ]; then
        say "FAILED: the old settings are back, but did not come up either."
        exit "$FAILED"
    fi
    say "RESTORED: the old settings are in force."
    exit "$RESTORED"
}

restore() {
    stage "$record" old || return
    take_down "$record" "$record/old.2"
    switch "$record"
}

# end_trial NETWORK TOKEN: what a timer does. TOKEN "any" ends it whichever timer it waits for.
end_trial() {
    lock_network "$1" 3600
    if [ ! -d "$record" ] || { [ "$2" != any ] && [ "$2" != "$(cat "$record/token")" ]; }; then
        say "The trial is over or was begun anew; nothing to do."
        return 0
    fi
    say "The new settings of this network were not confirmed. The old ones are put back."
    rm -f "$record/arguments"
    if ! restore; then
        say "FAILED: the old files can't be put back."
        return "$FAILED"
    fi
    bring_up "$record"
    came_up=$?
    forget_record
    if [ "$came_up" -ne 0 ]; then
        say "FAILED: the old settings are back, but did not come up."
        return "$FAILED"
    fi
    say "RESTORED: the old settings are in force."
}
