# shellcheck shell=sh
# For all stand-ins: they write down what they are asked for, reach nothing outside of the demo's network
# folder, and find everything well, unless there is a file "no-link" in it.

network=${TESSARAD_DEMO_NETWORK:-$PWD/network}
mkdir -p "$network"
echo "$(date +%T) ${0##*/} $*" >>"$network/commands.log"
