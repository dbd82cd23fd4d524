# shellcheck shell=sh
# The text of NetworkManager's keyfiles. What isn't ours in a file stays: other sections, other keys of
# our sections, comments. Values go to awk through its environment or its input, as its arguments could
# be seen by everybody.

# merged_keyfile BASE DROPPED < OURS: the base with the sections and keys of the input in it. DROPPED is a
# regular expression for "section/key" of what goes; "section/" alone means a whole section.
merged_keyfile() {
    base=$1
    [ -e "$base" ] || base=/dev/null
    dropped=$2 awk '
        function canonical(name) {
            if (name == "802-3-ethernet") return "ethernet"
            if (name == "802-11-wireless") return "wifi"
            if (name == "802-11-wireless-security") return "wifi-security"
            return name
        }
        function put(line) { print line; last = line }
        function put_ours(section) {
            if (section in done) return
            printf "%s", ours[section]
            last = "ours"
            done[section] = 1
        }
        { sub(/\r$/, "") }
        reading == "ours" && /^\[/ {
            section = substr($0, 2, length($0) - 2)
            order[++sections] = section
            next
        }
        reading == "ours" {
            ours[section] = ours[section] $0 "\n"
            set[section "/" substr($0, 1, index($0, "=") - 1)] = 1
            next
        }
        /^[ \t]*\[.*\][ \t]*$/ {
            gsub(/^[ \t]*\[|\][ \t]*$/, "")
            section = canonical($0)
            dropping = (section "/") ~ ENVIRON["dropped"]
            if (dropping) next
            put("[" section "]")
            if (section in ours) put_ours(section)
            next
        }
        dropping { next }
        /^[ \t]*(#|$)/ { put($0); next }
        {
            key = substr($0, 1, index($0 "=", "=") - 1)
            gsub(/^[ \t]+|[ \t]+$/, "", key)
            key = section "/" key
            if (!(key in set) && key !~ ENVIRON["dropped"]) put($0)
        }
        END {
            for (i = 1; i <= sections; i++) {
                if (order[i] in done) continue
                if (last != "") print ""
                print "[" order[i] "]"
                put_ours(order[i])
            }
        }' reading=ours - reading=base "$base"
}

# The keyfile's own identifier, or a fresh one. NetworkManager knows a connection by it.
uuid_of() {
    found=
    [ ! -e "$1" ] || found=$(keyfile_value "$1" connection uuid)
    if [ -n "$found" ]; then
        printf '%s\n' "$found"
    else
        cat /proc/sys/kernel/random/uuid
    fi
}

# keyfile_value FILE SECTION KEY
keyfile_value() {
    awk -F= -v section="[$2]" -v key="$3" '
        { sub(/\r$/, "") }
        /^[ \t]*\[/ { ours = ($0 == section); next }
        ours && $1 == key { value = substr($0, length(key) + 2) }
        END { print value }' "$1"
}

# Sections that an earlier [ipv4] may hold, and that would outweigh or contradict ours.
ADDRESS_KEYS='^ipv4/(method|dns|gateway|address(es)?[0-9]*)$'

# wired_keyfile BASE, then the thirteen arguments of configureeth
wired_keyfile() {
    old=$1
    shift
    {
        connection_section "$old" eth0 ethernet eth0
        echo "[ipv4]"
        echo "method=$1"
        [ -z "$5" ] || echo "dns=$5"
        [ -z "$2" ] || address_line 1 "$2" "$3" "$4"
        [ "$6" != yes ] || address_line 2 "$7" "$8" "$9"
        [ "${10}" != yes ] || address_line 3 "${11}" "${12}" "${13}"
    } | merged_keyfile "$old" "$ADDRESS_KEYS"
}

# wireless_keyfile BASE, then the arguments of configurewlan in client mode
wireless_keyfile() {
    old=$1 method=$3
    shift 3
    {
        connection_section "$old" wlan wifi wlan0
        if [ "$method" = dhcp ]; then
            wireless_sections "$1" "$2"
            echo "[ipv4]"
            echo "method=auto"
        else
            wireless_sections "$5" "$6"
            echo "[ipv4]"
            echo "method=manual"
            [ -z "$4" ] || echo "dns=$4"
            address_line 1 "$1" "$2" "$3"
        fi
        if [ "$method" = dhcp ]; then shown_section "$1" "$2"; else shown_section "$5" "$6"; fi
    } | merged_keyfile "$old" "$ADDRESS_KEYS|^(wifi-security|802-1x|\\.tessarad)/|^wifi/security\$"
}

connection_section() {
    printf '[connection]\nid=%s\nuuid=%s\ntype=%s\ninterface-name=%s\n' "$2" "$(uuid_of "$1")" "$3" "$4"
}

# The form that the daemon reads: an address without a gateway ends after its prefix.
address_line() {
    if [ "$4" = 0.0.0.0 ]; then
        printf 'address%s=%s/%s\n' "$1" "$2" "$3"
    else
        printf 'address%s=%s/%s,%s\n' "$1" "$2" "$3" "$4"
    fi
}

wireless_sections() {
    printf '[wifi]\nmode=infrastructure\nssid=%s\n' "$(escaped_ssid "$1")"
    [ -z "$2" ] || printf '[wifi-security]\nkey-mgmt=wpa-psk\npsk=%s\n' "$(escaped "$2")"
}

# The daemon knows no escapes and takes the last "ssid=" and "psk=" of the file, in whichever section;
# NetworkManager passes over sections with a leading dot. So where a value has an escaped form, the plain
# one follows for the daemon.
shown_section() {
    [ "$(escaped_ssid "$1")" != "$1" ] || [ "$(escaped "$2")" != "$2" ] || return 0
    printf '[.tessarad]\nssid=%s\n' "$1"
    [ -z "$2" ] || printf 'psk=%s\n' "$2"
}

# escaped TEXT: backslashes, and blanks at the beginning, which a reader would skip.
escaped() {
    printf %s "$1" | sed -e 's/\\/\\\\/g' -e ':blank' -e 's/^\(\(\\s\)*\) /\1\\s/' -e 'tblank'
}

# As escaped; a name of digits and semicolons would be read as a list of bytes, and a semicolon behind a
# backslash as one that is escaped.
escaped_ssid() {
    case $1 in
        *\\*) ;;
        *[!0-9\;\ ]*)
            escaped "$1"
            return
            ;;
    esac
    escaped "$1" | sed 's/;/\\\\;/g'
}
