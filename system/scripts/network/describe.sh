# shellcheck shell=sh
# Plain sentences about what is going to be in force.

# describe_wired, then the thirteen arguments of configureeth
describe_wired() {
    if [ "$1" = auto ]; then
        say "eth0 gets its address by DHCP$([ -z "$2" ] || echo ", and has $2/$3 besides")."
    else
        say "eth0 has the address $2/$3$(through "$4")."
    fi
    describe_alias eth0:1 "$6" "$7" "$8" "$9"
    describe_alias eth0:2 "${10}" "${11}" "${12}" "${13}"
    gateways=0
    for gateway in "$4" "$(when_on "$6" "$9")" "$(when_on "${10}" "${13}")"; do
        case $gateway in '' | 0.0.0.0) ;; *) gateways=$((gateways + 1)) ;; esac
    done
    [ "$gateways" -le 1 ] || say "There are $gateways gateways; NetworkManager uses the first."
}

describe_alias() {
    if [ "$2" = yes ]; then
        say "$1 has the address $3/$4$(through "$5")."
    else
        say "$1 is off."
    fi
}

through() {
    [ "$1" = 0.0.0.0 ] || printf ' and the gateway %s' "$1"
}

# describe_wireless, then the arguments of configurewlan
describe_wireless() {
    case $1:$2 in
        master:*)
            address=$(interfaces_parts "$work/new.2" address)
            say "wlan0 is the access point $(quoted "$2") with the address ${address% *}."
            ;;
        client:dhcp) say "wlan0 joins $(secured "$4")network $(quoted "$3") and gets its address by DHCP." ;;
        *) say "wlan0 joins $(secured "$8")network $(quoted "$7") with the address $3/$4$(through "$5")." ;;
    esac
}

secured() {
    if [ -n "$1" ]; then printf 'the '; else printf 'the open '; fi
}
