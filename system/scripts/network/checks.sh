# shellcheck shell=sh
# The rules for what may be configured. A check complains and goes on; nobody acts on values before all
# of them have passed.

# Splits an address into its four numbers.
is_address() {
    case $1 in '' | *[!0-9.]* | .* | *. | *..*) return 1 ;; esac
    saved_ifs=$IFS
    IFS=.
    # shellcheck disable=SC2086  # digits and the separator are all that is left
    set -- $1
    IFS=$saved_ifs
    [ $# -eq 4 ] || return 1
    for number; do
        # A leading zero means octal to some programs and decimal to others.
        case $number in 0?* | ????*) return 1 ;; esac
        [ "$number" -le 255 ] || return 1
    done
}

# The 32 bits of an address that is one.
as_number() {
    saved_ifs=$IFS
    IFS=.
    # shellcheck disable=SC2086
    set -- $1
    IFS=$saved_ifs
    echo $((($1 << 24) | ($2 << 16) | ($3 << 8) | $4))
}

is_prefix() {
    case $1 in '' | *[!0-9]* | 0* | ???*) return 1 ;; esac
    [ "$1" -le 32 ]
}

# No loopback, no multicast, nothing reserved.
is_unicast() {
    first=${1%%.*}
    [ "$first" -ge 1 ] && [ "$first" -ne 127 ] && [ "$first" -le 223 ]
}

# The last bits of a host's address are neither all 0 nor all 1; networks of two or one have no such rule.
is_host_of_its_network() {
    [ "$2" -le 30 ] || return 0
    rest=$(($(as_number "$1") & ((1 << (32 - $2)) - 1)))
    [ "$rest" -ne 0 ] && [ "$rest" -ne $(((1 << (32 - $2)) - 1)) ]
}

same_network() {
    [ $(($(as_number "$1") >> (32 - $3))) -eq $(($(as_number "$2") >> (32 - $3))) ]
}

# check_interface NAME ADDRESS PREFIX GATEWAY
check_interface() {
    if [ -z "$2" ]; then
        complain "$1: an address is needed."
    elif ! is_address "$2"; then
        complain "$1: $(quoted "$2") is no IPv4 address such as 192.168.0.10."
    elif ! is_unicast "$2"; then
        complain "$1: $2 is no address that a computer can have."
    elif ! is_prefix "$3"; then
        complain "$1: the netmask $(quoted "$3") is no number from 1 to 32, such as 24."
    elif ! is_host_of_its_network "$2" "$3"; then
        complain "$1: $2 is the network's own or its broadcast address, with the netmask $3."
    else
        check_gateway "$1" "$2" "$3" "$4"
    fi
}

check_gateway() {
    [ "$4" != 0.0.0.0 ] || return 0
    if ! is_address "$4"; then
        complain "$1: the gateway $(quoted "$4") is no IPv4 address; 0.0.0.0 means none."
    elif ! same_network "$2" "$4" "$3"; then
        complain "$1: the gateway $4 isn't in the network of $2/$3."
    elif [ "$4" = "$2" ]; then
        complain "$1: the gateway can't be the interface's own address $2."
    elif ! is_host_of_its_network "$4" "$3"; then
        complain "$1: the gateway $4 is the network's own or its broadcast address."
    fi
}

# check_wired_method METHOD ADDRESS PREFIX GATEWAY: with "auto" an address is welcome, not needed.
check_wired_method() {
    case $1 in
        manual) check_interface eth0 "$2" "$3" "$4" ;;
        auto)
            if [ -n "$2" ]; then
                check_interface eth0 "$2" "$3" "$4"
            elif [ "$4" != 0.0.0.0 ]; then
                complain "eth0: a gateway without an address; 0.0.0.0 means none."
            fi
            ;;
        '') complain "eth0: the method is missing; it is \"auto\" or \"manual\"." ;;
        *) complain "eth0: the method $(quoted "$1") is neither \"auto\" nor \"manual\"." ;;
    esac
}

# check_alias NAME ENABLED ADDRESS PREFIX GATEWAY
check_alias() {
    case $2 in
        yes) check_interface "$1" "$3" "$4" "$5" ;;
        no) ;;
        '') complain "$1: it isn't said whether the interface is used; \"yes\" or \"no\"." ;;
        *) complain "$1: $(quoted "$2") is neither \"yes\" nor \"no\"." ;;
    esac
}

when_on() {
    [ "$1" != yes ] || printf '%s\n' "$2"
}

check_twins() {
    [ -z "$2" ] || [ "$2" != "$4" ] || complain "$1 and $3 can't both have the address $(quoted "$2")."
}

# check_dns NAME LIST
check_dns() {
    list=${2%;}
    [ -n "$2" ] || return 0
    case $list in '' | ';'* | *';' | *';;'* | *[!0-9.\;]*)
        complain "$1: the name servers $(quoted "$2") aren't IPv4 addresses with a \";\" between them."
        return
        ;;
    esac
    saved_list_ifs=$IFS
    IFS=';'
    # shellcheck disable=SC2086
    set -- "$1" $list
    IFS=$saved_list_ifs
    name=$1
    shift
    for server; do
        if ! is_address "$server" || ! is_unicast_or_loopback "$server"; then
            complain "$name: the name server $(quoted "$server") is no IPv4 address."
        fi
    done
}

is_unicast_or_loopback() {
    is_unicast "$1" || [ "${1%%.*}" -eq 127 ]
}

check_ssid() {
    if [ -z "$1" ]; then
        complain "The network's name is missing."
    elif [ ${#1} -gt 32 ]; then
        complain "The network's name has ${#1} bytes; 32 are the most."
    elif has_control_characters "$1" || ! is_utf8 "$1"; then
        complain "The network's name holds characters that can't be printed."
    else
        check_readable "network's name" "$1" ssid=
    fi
}

has_control_characters() {
    case $1 in *[[:cntrl:]]*) return 0 ;; esac
    return 1
}

is_utf8() {
    printf %s "$1" | iconv -f UTF-8 -t UTF-8 >/dev/null 2>&1
}

# The daemon takes every occurrence of the key out of a line that it reads. It would show such a value
# cut, and the next save would write the cut one.
check_readable() {
    case $2 in *"$3"*) complain "The $1 holds \"$3\", which the daemon could not show again." ;; esac
}

is_passphrase() {
    [ ${#1} -ge 8 ] && [ ${#1} -le 63 ] || return 1
    case $1 in *[!\ -~]*) return 1 ;; esac
}

is_raw_key() {
    [ ${#1} -eq 64 ] || return 1
    case $1 in *[!0-9a-fA-F]*) return 1 ;; esac
}

# An access point always has a passphrase, and hostapd's key for it takes no 64 digits.
check_access_point_passphrase() {
    if [ -z "$1" ]; then
        complain "An access point needs a passphrase."
    elif ! is_passphrase "$1"; then
        complain "The passphrase must have 8 to 63 characters of plain ASCII."
    else
        check_readable passphrase "$1" wpa_passphrase=
    fi
}

# An empty passphrase means an open network.
check_client_passphrase() {
    if [ -n "$1" ] && ! is_passphrase "$1" && ! is_raw_key "$1"; then
        complain "The passphrase must have 8 to 63 characters of plain ASCII, or be 64 hexadecimal digits, or empty for an open network."
    else
        check_readable passphrase "$1" psk=
    fi
}

check_cipher() {
    case $1 in
        CCMP | TKIP) ;;
        '') complain "The cipher is missing; it is \"CCMP\" or \"TKIP\"." ;;
        *) complain "The cipher $(quoted "$1") is neither \"CCMP\" nor \"TKIP\"." ;;
    esac
}
