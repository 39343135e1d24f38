#!/usr/bin/env bash
# Builds Kelmar and starts it; installs first what is missing.
#   ./run.sh [DOCUMENT]
# Without a display it does the main job headless, whatever the document: rows of a sample file become a
# report and its PDF.
set -euo pipefail
[ $# -gt 0 ] && document=$(realpath "$1")
cd "$(dirname "$0")"

tools/install-packages.sh build run
cmake --preset release >/dev/null
cmake --build --preset release --target kelmar kelmar_batch_program
programs=$PWD/build/release/bin

# What an installation brings: the catalogue of modules. One that is there belongs to the user.
data=$("$programs/kelmar-batch" data-folder)
[ -e "$data/modules.db" ] || cp "$programs/modules.db" "$data/modules.db"

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    # The languages offered are those that lie in "Translations" of the working directory.
    cd "$programs"
    exec ./kelmar ${document:+"$document"}
fi

results=$PWD/build/headless
sample="samples/Sunny Lane 12/Roof south.csv"
mkdir -p "$results"
echo "There is no display: doing the main job headless with \"$sample\"."
"$programs/kelmar-batch" --language en import-results "$sample" --rows 1-4 --report "$results/Array Test Report.kelatr" --new \
    --pdf "$results/Array Test Report.pdf" --force
echo "The report: $results/Array Test Report.kelatr"
echo "Its PDF:    $results/Array Test Report.pdf"
