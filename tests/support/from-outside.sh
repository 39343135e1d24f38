# For tests that drive the built program from outside, with the keys and clicks of a user. To be sourced; needs a
# display, a window manager and xdotool. The process driven is $program, its window $window.

fail() {
    echo "FAIL: $1" >&2
    exit 1
}

# until_true SECONDS COMMAND...: asks again and again, for so long at most.
until_true() {
    local end=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $end ] || return 1
        sleep 0.05
    done
}

# The splash has no more than its picture's size, the window has.
find_window() {
    local id width
    window=
    for id in $(xdotool search --onlyvisible --pid "$program" --name '^Kelmar$'); do
        width=$(xdotool getwindowgeometry --shell "$id" | sed -n 's/^WIDTH=//p')
        [ "$width" -lt 700 ] || window=$id
    done
    [ -n "$window" ]
}
is_active() { [ "$(xdotool getactivewindow)" = "$window" ]; }
is_gone() { ! kill -0 "$program"; }
press() { xdotool key --clearmodifiers --delay 40 "$@"; }
type_text() { xdotool type --clearmodifiers --delay 20 "$1"; }
