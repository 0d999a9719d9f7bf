#!/usr/bin/env bash
# A look-up must start as fast as a small C program: nothing of GLib, D-Bus or SDL is linked, nor loaded on its way.
# Usage: light-start-test.sh ZAVEL
set -euo pipefail
zavel=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
heavy='libglib|libgio|libgobject|libdbus|libSDL|zavel-port'

! ldd "$zavel" | grep -E "$heavy" || { echo "linked to what is heavy"; exit 1; }
# Without a dictionary: the way through the host's start is the same, its end another.
# A session bus is told of, because only then there would be a reason to load what talks to it.
export DBUS_SESSION_BUS_ADDRESS=unix:path=$folder/bus
ZAVEL_ROOT=$folder LD_DEBUG=files LD_DEBUG_OUTPUT=$folder/files "$zavel" look goes >/dev/null 2>&1 || true
ls "$folder"/files.* >/dev/null || { echo "the loader told nothing"; exit 1; }
grep -q libplist "$folder"/files.* || { echo "libplist isn't loaded either: the test sees nothing"; exit 1; }
! grep -hE "calling init.*($heavy)|file=.*($heavy)" "$folder"/files.* || { echo "loaded what is heavy"; exit 1; }
