#!/usr/bin/env bash
# Makes the contact sheet of all forms, docs/images/forms.png: every page of every pristine report that the
# build has made, and of the same reports as a test fills them in, printed by kelmar-batch; two rows for each
# language. With a folder the pages are kept there, large enough to be judged one by one.
#   make-form-sheet.sh [FOLDER]
# Needs poppler-utils and imagemagick, and a build of the preset "release" with its tests.
set -euo pipefail
kept=${1:+$(mkdir -p "$1" && realpath "$1")}
cd "$(dirname "$0")/.."

build=$PWD/build/release
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export XDG_RUNTIME_DIR=$folder

QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 KELMAR_FILLED_FORMS=$folder "$build/bin/tests/tst_formsbykeys" \
    theEntriesOfAJobFitTheirFieldsUnshrunk >"$folder/log" 2>&1 || { cat "$folder/log" >&2 && exit 1; }

rows=()
for language in en de; do
    cp "$build/res/made/reports_$language"/default.* "$folder/$language"
    for state in default filled; do
        pages=()
        for form in kelir kelatr kelvc kelchk; do
            pdf=$folder/$language.$state.$form
            "$build/bin/kelmar-batch" --language "$language" pdf "$folder/$language/$state.$form" "$pdf.pdf"
            pdftoppm -r 45 -png "$pdf.pdf" "$pdf"
            pages+=("$pdf"-*.png)
            [ -z "$kept" ] || pdftoppm -r 120 -png "$pdf.pdf" "$kept/$language.$state.$form"
        done
        row=$folder/row.$language.$state.png
        montage "${pages[@]}" -tile x1 -geometry +6+6 -background '#a0a0a4' "$row"
        rows+=("$row")
    done
done
convert "${rows[@]}" -append -dither None -colors 64 -strip -define png:exclude-chunks=date,time docs/images/forms.png
