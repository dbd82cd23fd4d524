# Turns what `systemctl list-units` prints into five words a line, for the names in the environment's
# LISTED and the instances of its templates. Services that systemd hasn't loaded are looked up among the unit
# files, by one more command and only when there are such.

BEGIN {
    count = split(ENVIRON["LISTED"], listed, "\n")
    for (i = 1; i <= count; i++) {
        isListed[listed[i]]
    }
}

function templateOf(name) {
    return index(name, "@") ? substr(name, 1, index(name, "@")) : ""
}

# A description may hold anything that looks like a blank to the reader, such as a no-break space.
function word(text) {
    gsub(/[^!-~]/, "_", text)
    return text == "" ? "-" : text
}

# A marker may stand in front of the name, which then is the second word.
{ first = $1 ~ /\.service$/ ? 1 : 2 }

$first !~ /\.service$/ || NF < first + 3 { next }

{
    name = substr($first, 1, length($first) - length(".service"))
    # A template has no state; the reader would take a line about it for an instance.
    if (name !~ /@$/ && (name in isListed || templateOf(name) in isListed)) {
        isLoaded[name]
        print $first, $(first + 1), $(first + 2), $(first + 3), word($(first + 4))
    }
}

# An alias is loaded under another name, and nothing is known of it under this one.
function loadOf(fileState) {
    if (fileState ~ /^masked/) {
        return "masked"
    }
    if (fileState == "bad") {
        return "bad-setting"
    }
    return fileState == "alias" ? "" : fileState == "" ? "not-found" : "loaded"
}

END {
    missing = 0
    for (i = 1; i <= count; i++) {
        if (listed[i] !~ /@$/ && !(listed[i] in isLoaded)) {
            names[++missing] = listed[i]
        }
    }
    if (missing == 0) {
        exit
    }
    command = "systemctl list-unit-files --full --plain --no-legend --no-pager --type=service"
    while ((command | getline) > 0) {
        fileState[$1] = $2
    }
    if (close(command) != 0) {
        exit 1
    }
    for (i = 1; i <= missing; i++) {
        name = names[i]
        found = fileState[name ".service"]
        if (found == "" && templateOf(name) != "") {
            found = fileState[templateOf(name) ".service"]
        }
        load = loadOf(found)
        if (load != "") {
            print name ".service", load, "inactive", "dead", "-"
        }
    }
}
