# shellcheck shell=sh
# The demo's lists of services, its unit directory as the demo's daemon is built with, and a stand-in for
# systemd's commands.

demo=$(readlink -f "$here/..")
export TESSARAD_SERVICES="${TESSARAD_SERVICES:-$demo/etc/veltrano-services}"
export TESSARAD_UNIT_DIR="${TESSARAD_UNIT_DIR:-$demo/etc/systemd/system}"
export PATH="$here/service-stand-ins:$PATH"
