#!/usr/bin/env bash
# Runs a command that runs Windows programs: on an X server of its own with a window manager, and in a Wine of
# its own, whose drive C: goes with the session.
#   wine-session.sh COMMAND [ARGUMENT ...]
#   KELMAR_WINE_PREFIX=folder   keeps the Wine in that folder, for the next session to start with
#   KELMAR_WINE_SCREEN=WxH      size of the screen, else 1280x1024
# The command finds KELMAR_WINE (the loader), WINEPREFIX and DISPLAY.
set -u
here=$(cd "$(dirname "$0")" && pwd)

fail() {
    echo "wine-session.sh: $1" >&2
    exit 1
}

# Debian keeps the programs out of the way when only wine64 is installed.
KELMAR_WINE=$(PATH=$PATH:/usr/lib/wine command -v wine64) || fail "there is no wine64"
wineserver=$(PATH=$PATH:/usr/lib/wine command -v wineserver) || fail "there is no wineserver"
for program in Xvfb openbox xprop; do
    command -v "$program" >/dev/null || fail "there is no $program"
done

work=$(mktemp -d)
pids=()
finish() {
    timeout 20 "$wineserver" -k 2>/dev/null
    timeout 20 "$wineserver" -w 2>/dev/null
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null; done
    rm -rf "$work"
}
trap finish EXIT
trap 'kill "${command_pid:-$BASHPID}" 2>/dev/null; exit 130' INT TERM

export KELMAR_WINE WINEPREFIX=${KELMAR_WINE_PREFIX:-$work/prefix}
export WINEDEBUG=${WINEDEBUG:--all}
# No questions about Mono and Gecko; no menu entries, file types or trash outside of this Wine.
export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'
export HOME=$WINEPREFIX/host XDG_DATA_HOME=$WINEPREFIX/host/share XDG_CONFIG_HOME=$WINEPREFIX/host/config
export WINEQT_FORCE_STDERR_LOGGING=1
mkdir -p "$XDG_DATA_HOME" "$XDG_CONFIG_HOME"

Xvfb -displayfd 3 -screen 0 "${KELMAR_WINE_SCREEN:-1280x1024}x24" -nolisten tcp -noreset 3>"$work/display" >/dev/null 2>&1 &
pids+=($!)
for _ in $(seq 200); do
    [ -s "$work/display" ] && break
    sleep 0.05
done
[ -s "$work/display" ] || fail "the X server does not start"
DISPLAY=:$(cat "$work/display")
export DISPLAY
openbox >/dev/null 2>&1 &
pids+=($!)

if [ ! -e "$WINEPREFIX/ready" ]; then
    timeout 180 "$KELMAR_WINE" wineboot -i >/dev/null 2>&1 || fail "Wine cannot set up its drive C:"
    timeout 60 "$KELMAR_WINE" regedit /S "$here/wine-settings.reg" >/dev/null 2>&1 || fail "Wine does not take its settings"
    touch "$WINEPREFIX/ready"
fi
# The server stays from one program to the next.
"$wineserver" -p 2>/dev/null
for _ in $(seq 100); do
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break
    sleep 0.05
done

export KELMAR_WINE_SESSION=1
# In the background, so that a signal to this script is heeded at once.
"$@" <&0 &
command_pid=$!
wait "$command_pid"
