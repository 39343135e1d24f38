#!/usr/bin/env bash
# Makes the sample jobs anew, by the program's own code: the tester's files, every document in both languages, and
# what the client gets as PDF. What stands in the documents is in content/.
#   samples/rebuild.sh [FOLDER]      writes to FOLDER instead of samples/
# It builds what it needs with the preset "release", unless KELMAR_BUILD names a folder where that is built.
set -euo pipefail
samples=$(cd "$(dirname "$0")" && pwd)
target=${1:-$samples}
build=${KELMAR_BUILD:-$samples/../build/release}
mkdir -p "$target"
target=$(cd "$target" && pwd)
if [ -z "${KELMAR_BUILD:-}" ]; then
    (cd "$samples/.." && cmake --preset release >/dev/null)
    cmake --build "$build" --target kelmar-tester-files kelmar-sample-documents kelmar_batch_program | tail -n 1
fi
PATH=$build/tools-bin:$build/bin:$PATH
# File names with umlauts; no settings of this user; the catalogue of modules as it comes.
catalogue=$(mktemp -d)
trap 'rm -rf "$catalogue"' EXIT
cp "$build/bin/modules.db" "$catalogue/"
export LC_ALL=C.UTF-8 TZ=UTC KELMAR_DATA_FOLDER=$catalogue XDG_CONFIG_HOME=$catalogue XDG_RUNTIME_DIR=$catalogue

# make_job LANGUAGE FOLDER, with the names of the job's documents set
make_job() {
    local language=$1 job=$target/$2
    echo "$2"
    mkdir -p "$job/$pack"
    rm -f "$job"/*.kel* "$job/$pack"/*
    fill() { kelmar-sample-documents "$1" "$2" "$samples/content/${2##*.}.tsv" "$language"; }
    batch() { kelmar-batch --language "$language" "$@"; }

    # As the tester measured each string: continuity, automatic test, insulation of both poles.
    batch import-results "$job/$roof.csv" --rows 1-4 --report "$job/$roof.kelatr" --new
    batch import-results "$job/$roof.csv" --rows 6-9 --report "$job/$roof.kelatr"
    batch import-results "$job/$roof.csv" --rows 11-14 --report "$job/$roof.kelatr"
    fill report "$job/$roof.kelatr"
    fill report "$job/$inspection.kelir"
    fill report "$job/$certificate.kelvc"
    fill report "$job/$pack/$checklist.kelchk"
    fill diagram "$job/$roof.kelid"
    batch import-curves "$job/$roof.csv" --into "$job/$roof.kelcrv" --new >/dev/null
    fill curves "$job/$roof.kelcrv"
    chmod 644 "$job"/*.kel* "$job/$pack"/*

    print "$job/$inspection.kelir" "$inspection"
    print "$job/$roof.kelatr" "$test_report"
    print "$job/$certificate.kelvc" "$certificate"
    print "$job/$roof.kelid" "$diagram"
    print "$job/$roof.kelcrv" "$curves"
    print "$job/$pack/$checklist.kelchk" "$checklist"
}

# print DOCUMENT NAME: into the handover pack, dated as the certificate, so that the same document is the same file.
print() {
    local pdf=$job/$pack/$2.pdf
    case $1 in
    *.kelcrv) batch curve-report "$1" "$pdf" ;;
    *) batch pdf "$1" "$pdf" ;;
    esac
    sed -i -E "s/(\/CreationDate \(D:)[0-9]{14}/\120160513090000/" "$pdf"
}

kelmar-tester-files "$target/Sunny Lane 12"
mkdir -p "$target/Sonnenweg 12"
cp "$target/Sunny Lane 12/Roof south (German).csv" "$target/Sonnenweg 12/Dach Süd.csv"

roof="Roof south" inspection="Inspection Report" test_report="Array Test Report" certificate="Verification Certificate" \
    diagram="Installation Diagram" curves="Curve Report" pack="Handover Pack" checklist=Checklist \
    make_job en "Sunny Lane 12"
roof="Dach Süd" inspection="Prüfbericht Besichtigung" test_report="Prüfbericht PV-Generator" certificate=Prüfbescheinigung \
    diagram=Anlagenschema curves=Kennlinienbericht pack=Übergabeunterlagen checklist=Übergabe-Checkliste \
    make_job de "Sonnenweg 12"
