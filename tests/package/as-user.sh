#!/bin/sh
# Runs a command in a fresh root as one of its users, in the user's home and with nothing of this environment but
# the display.
#   as-user.sh ROOT USER COMMAND...
root=$1
user=$2
shift 2
ids=$(sed -n "s/^$user:x:\([0-9]*\):\([0-9]*\):.*/\1:\2/p" "$root/etc/passwd")
exec chroot --userspec="$ids" "$root" /usr/bin/env -i HOME="/home/$user" USER="$user" PATH=/usr/bin:/bin LANG=C.UTF-8 \
    XDG_RUNTIME_DIR="/home/$user" DISPLAY="${DISPLAY:-}" XAUTHORITY=/tmp/.Xauthority \
    /bin/sh -c 'cd && exec "$@"' as-user "$@"
