#!/usr/bin/env bash
# Takes pictures of every window, dialog, message box and menu of the built program, in both languages: at the
# scale factors 1, 1.5 and 2, and with dark colours. Each picture goes to a folder of its screen below FOLDER,
# and contact sheets of them beside it.
#   make-dialog-sheet.sh FOLDER [SCREEN ...]     SCREEN: 1, 1.5, 2, dark
# Needs xvfb, openbox and imagemagick, and a build of the preset "release" with its tests.
set -euo pipefail
folder=$(mkdir -p "$1" && realpath "$1")
shift
screens=("$@")
[ ${#screens[@]} -gt 0 ] || screens=(1 1.5 2 dark)
cd "$(dirname "$0")/.."

support=$PWD/tests/support
runtime=$(mktemp -d)
trap 'rm -rf "$runtime"' EXIT
cd build/release/bin/tests
export XDG_RUNTIME_DIR=$runtime QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8 TZ=UTC QT_LOGGING_RULES='qt.qpa.*=false'
# A screen that the windows have room on at any scale, and whose scale is just what is asked for.
export KELMAR_SCREEN=2600x2100 KELMAR_DPI=96

failed=
for screen in "${screens[@]}"; do
    pictures=$folder/$screen
    mkdir -p "$pictures"
    case $screen in
    dark) export QT_SCALE_FACTOR=1 KELMAR_PALETTE=dark ;;
    *) export QT_SCALE_FACTOR=$screen KELMAR_PALETTE= ;;
    esac
    : >"$pictures/log"
    for windows in ./tst_everywindow ./tst_curvewindows; do
        KELMAR_SCREENSHOTS=$pictures "$support/in-real-windows.sh" $windows >>"$pictures/log" 2>&1 ||
            failed="$failed $screen"
    done
    for language in en de; do
        for kind in 'main window' box menu; do
            montage "$pictures/$language $kind"* -tile 2x -geometry +8+8 -background '#888888' \
                "$folder/$screen $language $kind.png"
        done
        find "$pictures" -name "$language *.png" ! -name "$language main window*" ! -name "$language box*" \
            ! -name "$language menu*" -print0 | sort -z |
            xargs -0 sh -c 'montage "$@" -tile 3x -geometry +8+8 -background "#888888" "$0"' \
                "$folder/$screen $language dialogs.png"
    done
done
if [ -n "$failed" ]; then
    echo "something is wrong with windows, see the log in:$failed" >&2
    exit 1
fi
