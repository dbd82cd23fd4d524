# shellcheck shell=sh
# What makes files take effect. It is told by the files alone, so that new and old ones come up alike.
#
# The commands are killed with nobody, may live on behind a killed run, and so hold neither its lock nor
# its pipe, and have no part in its file mode.

# run_outside COMMAND...: what it prints is kept in output.
run_outside() {
    output=$(
        umask 022
        exec "$@" 2>&1 9>&- </dev/null
    )
}

# Shows what the command printed when it fails.
must_run() {
    run_outside "$@" && return
    say "\"$1\" failed:"
    indented "$output"
    return 1
}

# For steps that have nothing to do on many systems: no such service, the link is down already.
may_run() {
    run_outside "$@" || true
}

# bring_up RECORD: brings the files up that the record names.
bring_up() {
    keyfile=$(path 1 "$1")
    case $network in
        eth) bring_connection_up "$keyfile" ;;
        wlan) bring_wireless_up "$keyfile" "$(path 2 "$1")" ;;
    esac
}

bring_connection_up() {
    if [ ! -e "$1" ]; then
        may_run nmcli connection reload
        return
    fi
    must_run nmcli connection load "$1" || return
    uuid=$(keyfile_value "$1" connection uuid)
    if [ -n "$uuid" ]; then
        must_run nmcli --wait 60 connection up uuid "$uuid"
    else
        must_run nmcli --wait 60 connection up id "$(keyfile_value "$1" connection id)"
    fi
}

bring_wireless_up() {
    if has_access_point "$2"; then
        may_run nmcli device set wlan0 managed no
        must_run ifup wlan0 || return
        may_run systemctl unmask hostapd.service
        must_run systemctl enable hostapd.service || return
        must_run systemctl restart hostapd.service
    else
        may_run nmcli device set wlan0 managed yes
        bring_connection_up "$1"
    fi
}

# take_down RECORD INTERFACES: before an access point's stanza goes, as ifdown needs it to take the
# interface down. INTERFACES is the file that will be in force.
take_down() {
    [ "$network" = wlan ] || return 0
    if has_access_point "$(path 2 "$1")" && ! has_access_point "$2"; then
        may_run systemctl disable --now hostapd.service
        may_run ifdown wlan0
    fi
}

# A timer outside of this process, its service and its terminal. It is named by network and token.
start_timer() {
    must_run systemd-run --quiet --collect --unit="$(timer_name "$1")" \
        --description="Puts the old network files back" \
        --on-active="$delay" --timer-property=AccuracySec=1s \
        "$here/rollbacknetwork" "$state" "$network" "$1"
}

stop_timer() {
    may_run systemctl stop "$(timer_name "$1").timer"
}

timer_name() {
    printf 'tessarad-rollback-%s-%s\n' "$network" "$1"
}
