# shellcheck shell=sh
# What configureeth, configurewlan and rollbacknetwork share, and how their processes behave.

# Bytes are counted, not letters, and the commands' messages come as they are.
export LC_ALL=C
# Copies of the files hold passphrases.
umask 077
# A daemon that ends or forgets this run closes the pipe; half done work would be the worse.
trap '' PIPE HUP

state=${TESSARAD_NETWORK_STATE:-/var/lib/veltrano/network}

# shellcheck source=network/messages.sh
. "$here/network/messages.sh"
# shellcheck source=network/settings.sh
. "$here/network/settings.sh"
# shellcheck source=network/checks.sh
. "$here/network/checks.sh"
# shellcheck source=network/keyfiles.sh
. "$here/network/keyfiles.sh"
# shellcheck source=network/access_point.sh
. "$here/network/access_point.sh"
# shellcheck source=network/describe.sh
. "$here/network/describe.sh"
# shellcheck source=network/links.sh
. "$here/network/links.sh"
# shellcheck source=network/files.sh
. "$here/network/files.sh"
# shellcheck source=network/trial.sh
. "$here/network/trial.sh"
