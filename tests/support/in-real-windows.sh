#!/bin/sh
# Runs a test program on an X server of its own, under a window manager that gives it real focus.
#   in-real-windows.sh PROGRAM [ARGUMENT ...]
# KELMAR_SCREEN is the size of the screen, KELMAR_DPI its resolution where it is not to be the server's own.
# The server is kept from resetting when a program of the test leaves it, and the program starts only when
# the window manager has taken charge.
exec xvfb-run --auto-servernum \
    --server-args="-screen 0 ${KELMAR_SCREEN:-1280x1024}x24 ${KELMAR_DPI:+-dpi $KELMAR_DPI} -nolisten tcp -noreset" sh -c '
    openbox >/dev/null 2>&1 &
    manager=$!
    tries=0
    until xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q "window id" || [ $tries -ge 100 ]; do
        sleep 0.1
        tries=$((tries + 1))
    done
    "$@"
    result=$?
    kill $manager 2>/dev/null
    exit $result' window-manager "$@"
