# shellcheck shell=sh
# The lock, and the replacing of whole files.
#
# A record is a folder with the list "paths" of absolute paths, and "old.1", "old.2"... for those of
# them that existed.

# lock_network NETWORK SECONDS: one run at a time. Whoever holds the lock keeps it through the commands
# that change files, so that none of those can come late when a run is killed; its death sets it free.
lock_network() {
    network=$1
    record=$state/$network.trial
    work=$state/$network.next
    if ! mkdir -p "$state" 2>/dev/null || ! (: >>"$state/$network.lock") 2>/dev/null; then
        complain "$state can't be written; this needs the rights of root."
        refuse "$NOT_SET_UP"
    fi
    exec 9>>"$state/$network.lock"
    if ! flock -w "$2" 9; then
        complain "Another change of this network is at work. Try again when it has ended."
        refuse "$BUSY"
    fi
}

# path N RECORD
path() {
    sed -n "$1p" "$2/paths"
}

# Where the new text of a file waits for its turn: beside it, as only there a rename is one step, and
# hidden, as the programs that read the folder pass over such names.
waiting() {
    printf '%s/.%s.tessarad-new\n' "$(dirname "$1")" "$(basename "$1")"
}

# put_beside FILE TEXT KIND: makes TEXT wait for FILE, with the owner and mode of the old one. A keyfile
# (KIND 1) is for root alone, NetworkManager refuses it else; so is hostapd's with its passphrase (3).
put_beside() {
    new=$(waiting "$1")
    rm -f "$new" || return
    if [ -e "$1" ]; then
        cp -p "$1" "$new" || return
    else
        : >"$new" || return
        [ "$3" -ne 2 ] || chmod 644 "$new" || return
    fi
    [ "$3" -ne 1 ] || chmod 600 "$new" || return
    cat "$2" >"$new" && flush "$new"
}

flush() {
    sync "$1" 2>/dev/null || sync
}

# put_in_place FILE: the file that waits, or its absence, becomes the file.
put_in_place() {
    new=$(waiting "$1")
    if [ -e "$new" ]; then
        mv "$new" "$1" || return
    else
        rm -f "$1" || return
    fi
    flush "$(dirname "$1")"
}

# stage FOLDER PREFIX: makes FOLDER's texts PREFIX.1, PREFIX.2... wait for the files of its record.
stage() {
    n=0
    while IFS= read -r file; do
        n=$((n + 1))
        if [ -e "$1/$2.$n" ]; then
            put_beside "$file" "$1/$2.$n" "$n" || return
        else
            rm -f "$(waiting "$file")" || return
        fi
    done <"$1/paths"
}

unstage() {
    while IFS= read -r file; do
        rm -f "$(waiting "$file")"
    done <"$1/paths"
}

# Puts what stage has prepared in place.
switch() {
    while IFS= read -r file; do
        put_in_place "$file" || return
    done <"$1/paths"
}

# keep_old RECORD: copies the files into it.
keep_old() {
    n=0
    while IFS= read -r file; do
        n=$((n + 1))
        [ -e "$file" ] || continue
        cp -p "$file" "$1/old.$n" && flush "$1/old.$n" || return
    done <"$1/paths"
}

same() {
    if [ -e "$1" ] || [ -e "$2" ]; then
        cmp -s "$1" "$2"
    fi
}
