# shellcheck shell=sh
# The two files of the access point: ifupdown's interfaces and hostapd's configuration.
#
# The daemon takes any line with "iface wlan0" for the stanza, comments too, and within it any line with
# "address" or "netmask". So the stanza stands at the end of the file with these two lines last, and in
# comments the words get a second blank between them.

# A function that can't make a text says in "why" what is in its way: its output is the text.

# What a new access point gets that never had an address.
DEFAULT_ACCESS_POINT='192.168.12.1 255.255.255.0'

# interfaces_parts FILE PART: one part of an interfaces file. PART is "others" (all but wlan0's IPv4
# stanza), "header" (its first line), "options" (its lines but address and netmask), "address" (both of
# these, in one line) or "count" (of such stanzas).
interfaces_parts() {
    part=$2 awk '
        function mask(prefix,  i, octet, text) {
            for (i = 0; i < 4; i++) {
                octet = prefix >= 8 ? 256 : 2 ^ (prefix > 0 ? prefix : 0)
                text = text (i ? "." : "") (256 - 256 / octet)
                prefix -= 8
            }
            return text
        }
        function put(kind) {
            kept = kind
            if (kind == part) print line
        }
        BEGIN { part = ENVIRON["part"] }
        { sub(/\r$/, ""); line = $0 }
        continued { continued = /\\$/; put(kept); next }
        /^[ \t]*#/ { gsub(/iface wlan0/, "iface  wlan0", line); put("others"); next }
        /^[ \t]*$/ { put("others"); next }
        { continued = /\\$/ }
        $1 ~ /^(iface|mapping|auto|allow-.*|source|source-directory|no-auto-down|no-scripts|rename|template)$/ {
            ours = ($1 == "iface" && $2 == "wlan0" && $3 != "inet6")
            if (ours) { count++; put("header") } else put("others")
            next
        }
        !ours { put("others"); next }
        $1 == "address" { address = $2; kept = ""; next }
        $1 == "netmask" { netmask = $2; kept = ""; next }
        { put("options") }
        END {
            if (split(address, halves, "/") == 2) {
                address = halves[1]
                netmask = mask(halves[2])
            } else if (netmask ~ /^[0-9]+$/) {
                netmask = mask(netmask)
            }
            if (part == "address" && address != "" && netmask != "") print address, netmask
            if (part == "count") print count + 0
        }' "$1"
}

# without_access_point FILE: the file without the stanza, and without "auto wlan0".
without_access_point() {
    text=$(
        interfaces_parts "$1" others | awk '
            $1 ~ /^(auto|allow-.*)$/ && NF > 1 {
                words = $1
                for (i = 2; i <= NF; i++) if ($i != "wlan0") words = words " " $i
                if (split(words, unused, " ") == NF) print
                else if (words != $1) print words
                next
            }
            { print }'
        echo .
    )
    text=${text%.}
    case $text in *'iface wlan0'*)
        why="another stanza begins with \"iface wlan0\", and the daemon would take it for the access point's."
        return 1
        ;;
    esac
    # The blank line that parted the stanza from what stood above goes with it.
    [ "$(interfaces_parts "$1" count)" -eq 0 ] || text=$(printf %s "$text")${text:+
}
    printf %s "$text"
}

# with_access_point FILE: the file with the stanza at its end. Its address is the one that it has, else
# the one that it had.
with_access_point() {
    file=$1
    [ -e "$file" ] || file=/dev/null
    if [ "$(interfaces_parts "$file" count)" -gt 1 ]; then
        why="there are several stanzas for wlan0; put them together by hand first."
        return 1
    fi
    address=$(interfaces_parts "$file" address)
    [ -n "$address" ] || address=$(cat "$state/wlan.address" 2>/dev/null)
    [ -n "$address" ] || address=$DEFAULT_ACCESS_POINT
    others=$(interfaces_parts "$file" others)
    printf '%s' "${others:+$others
}"
    if ! printf '%s\n' "$others" | grep -Eq '^[[:space:]]*(auto|allow-[^[:space:]]*)[[:space:]](.*[[:space:]])?wlan0([[:space:]]|$)'; then
        printf '%s' "${others:+
}"
        echo "auto wlan0"
    fi
    echo "iface wlan0 inet static"
    interfaces_parts "$file" options
    printf '    address %s\n    netmask %s\n' "${address% *}" "${address#* }"
}

# Keeps the access point's address for the next time that there is one.
remember_access_point() {
    [ -e "$1" ] || return 0
    address=$(interfaces_parts "$1" address)
    [ -n "$address" ] || return 0
    printf '%s\n' "$address" >"$state/wlan.address.new"
    mv "$state/wlan.address.new" "$state/wlan.address"
}

# has_access_point FILE: whether the daemon would take it so.
has_access_point() {
    [ -e "$1" ] && grep -q 'iface wlan0' "$1"
}

# hostapd_configuration BASE SSID CIPHER PASSPHRASE: the base with these values. All else stays, but for
# the keys that would outweigh them.
hostapd_configuration() {
    base=$1 fresh=
    [ -e "$base" ] || base=/dev/null fresh=yes
    if grep -q '^bss=' "$base"; then
        why="the file describes several networks; such a file must be edited by hand."
        return 1
    fi
    fresh=$fresh ssid=$2 rsn_pairwise=$3 wpa_passphrase=$4 wpa=2 wpa_key_mgmt=WPA-PSK awk '
        function put(key) {
            if (!(key in done)) print key "=" ENVIRON[key]
            done[key] = 1
        }
        BEGIN {
            keys = split("ssid wpa wpa_key_mgmt rsn_pairwise wpa_passphrase", order, " ")
            for (i = 1; i <= keys; i++) ours[order[i]] = 1
            if (ENVIRON["fresh"]) {
                print "interface=wlan0\ndriver=nl80211\nhw_mode=g\nchannel=6\nauth_algs=1"
            }
        }
        {
            sub(/\r$/, "")
            key = substr($0, 1, index($0 "=", "=") - 1)
            if (key in ours) put(key)
            else if (key != "ssid2" && key != "wpa_psk") print
        }
        END { for (i = 1; i <= keys; i++) put(order[i]) }' "$base"
}
