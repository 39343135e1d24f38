#!/bin/bash
# Drives the built program from outside, with keys alone, as a user does: a new report from the menu, its name,
# a text in it, save, close. What reached the disk is judged by other programs.
#   smoke.sh KELMAR KELMAR-BATCH      needs a display, a window manager, xdotool and pdftotext
set -euo pipefail
. "$(dirname "$0")/../support/from-outside.sh"

kelmar=$1
batch=$2
work=$(mktemp -d)
root=$work/projects
report=$root/Smoke.kelatr
text='Typed from outside'
program=

finish() {
    [ -z "$program" ] || kill -KILL "$program" 2>/dev/null || true
    rm -rf "$work"
}
trap finish EXIT

has_text() {
    "$batch" pdf "$report" "$work/report.pdf" --force &&
        pdftotext -layout "$work/report.pdf" - | grep -q "$text"
}

mkdir -p "$root" "$work/config/Varnhold" "$work/home"
cat >"$work/config/Varnhold/Kelmar.conf" <<SETTINGS
[General]
locale=en

[Directories]
RootDir=$root

[Welcome]
show=false
SETTINGS
export HOME=$work/home XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/share KELMAR_DATA_FOLDER=$work/data

cd "$(dirname "$kelmar")"
"$kelmar" &
program=$!
until_true 20 find_window || fail "no window came up"
xdotool windowactivate "$window"
until_true 10 is_active || fail "the window takes no focus"

# The second entry of the first menu makes an array test report, whose name is then being edited.
press Alt_L
press Down
press Down
press Return
until_true 10 test -s "$root/Array Test Report.kelatr" || fail "the menu made no report"
press ctrl+a
type_text 'Smoke.kelatr'
press Return
until_true 10 test -s "$report" || fail "the new report was not renamed"
[ ! -e "$root/Array Test Report.kelatr" ] || fail "the old name is still there"

# How soon the tree shows the new name and the report takes the keys is the program's affair, and check boxes
# come before the first field: so the same again with one more Tab, until the text is on the disk.
for attempt in $(seq 8); do
    press Home
    press ctrl+o
    for _ in $(seq $((attempt + 3))); do press Tab; done
    press ctrl+a
    type_text "$text"
    press ctrl+s
    until_true 2 has_text && break
done
has_text || fail "the text is not in the saved report after $attempt attempts"

press alt+F4
until_true 10 is_gone || fail "the window does not close"
code=0
wait "$program" || code=$?
program=
[ $code -eq 0 ] || fail "the program ended with $code"
grep -q '^MainWindowGeometry=' "$work/config/Varnhold/Kelmar.conf" || fail "the window's place was not stored"
has_text || fail "the text was lost at the end"
echo "PASS"
