#!/usr/bin/env bash
# Takes the pictures of windows in docs/images from the built program, which works on the sample jobs:
# main-window.png, import.png, diagram.png, curves.png and german.png.
# Needs xvfb, openbox, xdotool and imagemagick, and a build of the preset "release" with kelmar-sample-documents.
#   docs/make-screenshot.sh [PICTURE ...]      main-window, import, diagram, curves, german; all without one
set -euo pipefail
cd "$(dirname "$0")/.."

if [ "${1:-}" != on-the-screen ]; then
    exec tests/support/in-real-windows.sh "$0" on-the-screen "$@"
fi
shift
[ $# -gt 0 ] || set -- main-window import diagram curves german
. tests/support/from-outside.sh

sources=$PWD
programs=$PWD/build/release/bin
home=$(mktemp -d)
program=
trap '[ -z "$program" ] || kill "$program" 2>/dev/null || true; rm -rf "$home"' EXIT
export HOME=$home XDG_CONFIG_HOME=$home/config XDG_DATA_HOME=$home/share XDG_RUNTIME_DIR=$home LC_ALL=C.UTF-8
export KELMAR_DATA_FOLDER=$home/data QT_LOGGING_RULES='*=false'
mkdir -p "$home/data"
cp "$programs/modules.db" "$home/data/"

# Jobs as an installer would have them: the sample among empty ones.
root=$home/projects
english_job="$root/Sunny Lane 12"
german_job="$root/Sonnenweg 12"
make_jobs() {
    rm -rf "$root"
    mkdir -p "$root/$1" "$root/$2"
    cp -r "samples/${3##*/}" "$3"
    cp "$3"/*/*.kelchk "$root/$2"
}

# start LANGUAGE DOCUMENT: the main window fills the screen from its upper left corner on.
start() {
    mkdir -p "$XDG_CONFIG_HOME/Varnhold"
    printf '[General]\nlocale=%s\n\n[Directories]\nRootDir=%s\nLastImportDir=%s\n\n[Welcome]\nshow=false\n' \
        "$1" "$root" "${2%/*}/${2##*/}" >"$XDG_CONFIG_HOME/Varnhold/Kelmar.conf"
    cd "$programs"
    ./kelmar "$2" &
    program=$!
    cd "$sources"
    until_true 30 find_window || fail "no window came up"
    xdotool windowsize --sync "$window" 1200 900
    xdotool windowmove "$window" 20 40
    xdotool windowactivate --sync "$window"
    sleep 1
}
click() { xdotool mousemove --window "$1" "$2" "$3" click "${@:4}" 1 && sleep 0.3; }
# The zoom out button, and the pointer out of sight.
zoom_out() {
    click "$window" 346 75
    xdotool mousemove --window "$window" 700 890
    sleep 1
}
take() { import "${@:2}" -strip -define png:exclude-chunks=date,time -define png:compression-level=9 "docs/images/$1.png"; }
end() {
    kill "$program"
    wait "$program" 2>/dev/null || true
    program=
}

take_main-window() {
    make_jobs "Harbour Street 4" "Old Mill" "$english_job"
    start en_GB "$english_job/Roof south.kelatr"
    zoom_out
    take main-window -window "$window"
    end
}

# The third of three strings is about to be imported.
take_import() {
    local report="$english_job/Roof south.kelatr" results="$english_job/Roof south.csv" front
    make_jobs "Harbour Street 4" "Old Mill" "$english_job"
    "$programs/kelmar-batch" --language en import-results "$results" --rows 1-4 --report "$report" --new --force
    "$programs/kelmar-batch" --language en import-results "$results" --rows 6-9 --report "$report"
    "$programs/../tools-bin/kelmar-sample-documents" report "$report" samples/content/kelatr.tsv en
    start en_GB "$report"
    zoom_out
    press ctrl+alt+i
    until_true 10 xdotool search --onlyvisible --name '^Import CSV File$'
    sleep 0.5
    press ctrl+a
    type_text "$results"
    press Return
    until_true 10 xdotool search --onlyvisible --name '^Import Results - '
    front=$(xdotool search --onlyvisible --name '^Import Results - ' | tail -n 1)
    xdotool windowsize --sync "$front" 620 430
    xdotool windowmove "$front" 560 420
    sleep 0.5
    click "$front" 260 90
    for _ in $(seq 10); do press Down; done
    press shift+Down shift+Down shift+Down
    sleep 0.5
    take import -window root -crop 1200x900+20+40 +repage
    end
}

take_diagram() {
    make_jobs "Harbour Street 4" "Old Mill" "$english_job"
    start en_GB "$english_job/Roof south.kelid"
    zoom_out
    zoom_out
    # To the middle of the drawing, by the wheel.
    xdotool click 7
    sleep 1
    take diagram -window "$window"
    end
}

# All strings of the roof, measured and corrected, with what the tracker reads. The graph gets more room than the
# tree.
take_curves() {
    make_jobs "Harbour Street 4" "Old Mill" "$english_job"
    start en_GB "$english_job/Roof south.kelcrv"
    click "$window" 300 124
    click "$window" 360 124
    click "$window" 360 75
    xdotool mousemove --window "$window" 712 480 mousedown 1
    xdotool mousemove --window "$window" 650 480 mousemove --window "$window" 522 480 mouseup 1
    xdotool mousemove --window "$window" 640 640
    sleep 1
    take curves -window "$window"
    end
}

take_german() {
    make_jobs "Alte Mühle" "Hafenstraße 4" "$german_job"
    start de_DE "$german_job/Prüfbescheinigung.kelvc"
    zoom_out
    take german -window "$window"
    end
}

for picture in "$@"; do
    "take_$picture"
    echo "docs/images/$picture.png"
done
