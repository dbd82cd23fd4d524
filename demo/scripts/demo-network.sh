# shellcheck shell=sh
# Another root for the controller's network scripts: the demo's configuration, its files in the demo's
# running folder, and stand-ins for the programs that would reach the system.

run=${TESSARAD_DEMO_RUN:-$here/../run}
mkdir -p "$run/network"
# The demo's settings name their files as seen from here, for the daemon as for the scripts.
cd "$run"
conf=$PWD/etc/veltrano/tessarad.conf
[ -e "$conf" ] || conf=$(readlink -f "$here/../etc/veltrano/tessarad.conf")
export TESSARAD_CONF="${TESSARAD_CONF:-$conf}"
for sample in "$here"/network/*; do
    [ -e "network/${sample##*/}" ] || install -m 600 "$sample" network/
done

export TESSARAD_NETWORK_STATE="$PWD/network/state"
export TESSARAD_DEMO_NETWORK="$PWD/network"
export PATH="$here/stand-ins:$PATH"
