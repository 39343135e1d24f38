#!/usr/bin/env bash
# Drives the installed program in a fresh root with the keys of two users: the first one starts it for the first
# time, in German, makes a report from a tester's file, prints it, and makes it the favourite; the second one's
# new report is a copy of that favourite, which the second one then replaces.
#   two-users.sh ROOT FIRST SECOND      needs root, a display, a window manager, xdotool and pdftotext
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
. "$here/checks.sh"
. "$here/../support/from-outside.sh"
root=$1
first=$2
second=$3
favourite=$root/var/lib/Varnhold/Kelmar/default.kelatr
results='/usr/share/doc/kelmar/examples/Sunny Lane 12/Roof south (German).csv'
program=
trap '[ -z "$program" ] || kill -KILL "$program" 2>/dev/null || true' EXIT

# The display as the fresh root's users reach it: by its socket and its key.
mkdir -p "$root/tmp/.X11-unix"
ln "/tmp/.X11-unix/X${DISPLAY#*:}" "$root/tmp/.X11-unix/" 2>/dev/null || true
install -m 0644 "${XAUTHORITY:-/dev/null}" "$root/tmp/.Xauthority"

front_is() {
    front=$(xdotool getactivewindow) && [ "$(xdotool getwindowname "$front")" = "$1" ] &&
        [ "$(xdotool getwindowpid "$front")" = "$program" ]
}
wait_for_window() { until_true 30 front_is "$1" || fail "no window \"$1\" came to the front"; }
click() { xdotool mousemove --window "$front" "$1" "$2" click "${@:3}" 1; }
stored() { grep -q "^$1" "$root/home/$user/.config/Varnhold/Kelmar.conf"; }

# As the desktop does: in the folder that the entry names.
start() {
    user=$1
    local entry=$root/usr/share/applications/kelmar.desktop
    "$here/as-user.sh" "$root" "$user" sh -c 'cd "$1" && exec $2' desktop \
        "$(sed -n 's/^Path=//p' "$entry")" "$(sed -n 's/^Exec=\([^ ]*\).*/\1/p' "$entry")" >/dev/null 2>&1 &
    program=$!
    projects="$root/home/$user/Documents/Kelmar Projects"
}

# The language is chosen from a list whose order is no matter: by its first letter.
first_start() {
    start "$1"
    wait_for_window 'Please Select a Language'
    until_true 20 choose_german || fail "the languages offered are not those installed"
    wait_for_window 'Kelmar'
    press Return
    wait_for_window 'Projektverzeichnis auswählen'
    press Escape
    wait_for_window 'Kelmar'
    press Return
    wait_for_window 'Willkommen bei Kelmar!'
    press Escape
    wait_for_window 'Kelmar'
    until_true 20 find_window || fail "there is no main window"
    check "$user chooses German at the first start" stored locale=de
    check "$user gets a projects root in the own home" test -d "$projects"
}
choose_german() {
    front_is 'Please Select a Language' || return 0
    click 150 15
    press g Return
    sleep 0.3
    press Return
    until_true 3 stored locale=
}

# new_report NAME: by the second entry of the first menu; the name is then being edited.
new_report() {
    report=$projects/$1
    press Alt_L
    press Down
    press Down
    press Return
    until_true 20 test -s "$projects/Prüfbericht PV-Generator.kelatr" || fail "the menu made no report"
    press ctrl+a
    type_text "$1"
    press Return
    until_true 20 test -s "$report" || fail "the new report was not renamed"
}

# How soon the tree shows the new name is the program's affair: so the same again until the open report answers.
open_report() {
    for _ in 1 2 3 4 5 6 7 8; do
        press Home
        press ctrl+o
        press ctrl+alt+i
        ! until_true 3 front_is 'CSV-Datei importieren' || return 0
    done
    fail "the report does not open"
}

import_first_rows() {
    press ctrl+a
    type_text "$results"
    press Return
    wait_for_window "Ergebnisse importieren - ${results##*/}"
    eval "$(xdotool getwindowgeometry --shell "$front")"
    click 260 98
    press shift+Down shift+Down shift+Down
    click 90 $((HEIGHT - 35))
    press alt+F4
    wait_for_window 'Kelmar'
}

save_as_favourite() {
    press ctrl+alt+s
    until_true 10 is_box || fail "nobody asks before the favourite is replaced"
    # The letter of the toolkit's German button.
    press alt+j
    until_true 20 cmp "$report" "$favourite" || fail "the favourite is not the report"
}
is_box() { front=$(xdotool getactivewindow) && [ "$front" != "$window" ]; }

close_program() {
    wait_for_window 'Kelmar'
    press alt+F4
    until_true 20 is_gone || fail "the window does not close"
    local code=0
    wait "$program" || code=$?
    program=
    check_same "$user's session ends well" 0 $code
}

print_report() {
    press ctrl+shift+e
    wait_for_window 'PDF exportieren'
    press ctrl+a
    type_text "/home/$user/report.pdf"
    press Return
    until_true 20 pdftotext "$root/home/$user/report.pdf" - || fail "there is no PDF"
    wait_for_window 'Kelmar'
}
# The measured voltages in the report, one for each string filled.
voltages() {
    "$here/as-user.sh" "$root" "$user" kelmar-batch --language de pdf "/${report#"$root"/}" check.pdf --force &&
        pdftotext -layout "$root/home/$user/check.pdf" - | sed -n 's/.*Uoc (V) *//p' | tr -s ' '
}

has_strings() { [ "$(voltages | wc -w)" -eq "$1" ]; }

# save_with STRINGS: the saved report is to have so many strings.
save_with() {
    press ctrl+s
    check "$user's saved report has $1 measured string(s)" until_true 20 has_strings "$1"
}

first_start "$first"
new_report Dach.kelatr
open_report
import_first_rows
save_with 1
print_report
check "$user's PDF has it, too" sh -c "pdftotext -layout '$root/home/$user/report.pdf' - | grep -q 'Uoc (V) *$(voltages)'"
save_as_favourite
check_same "everybody may replace $user's favourite" 666 "$(stat -c %a "$favourite")"
of_first=$(voltages)
close_program

first_start "$second"
new_report Carport.kelatr
check_same "$user's new report is a copy of the favourite of $first" "$of_first" "$(voltages)"
open_report
import_first_rows
save_with 2
check_not "$user's report differs from the favourite of $first" cmp "$report" "$favourite"
save_as_favourite
check "$user's report is the favourite now" cmp "$report" "$favourite"
check "it is still the file that $first made" test "$(stat -c %u "$favourite")" = "$(stat -c %u "$root/home/$first")"
close_program
