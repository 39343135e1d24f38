#!/usr/bin/env bash
# Builds the Debian package, lets Debian's and the desktops' own tools judge it, and does the main job with it on a
# fresh machine. Prints what it checks and stops at the first thing that is not so.
#   run.sh          needs a configured build of the preset "release", and root or sudo
set -euo pipefail
cd "$(dirname "$0")/../.."
. tests/package/checks.sh
build=$PWD/build/release
linux=$PWD/packaging/linux

rm -f "$build"/package/*.deb
cmake --build "$build" --target kelmar_package >"$build/package.log" 2>&1 || { cat "$build/package.log"; exit 1; }
package=$(echo "$build"/package/kelmar_*.deb)
check "the package is built" test -s "$package"

if [ -d docs/manual ]; then
    check "the manual stands where the program looks for it" sh -c "
        dpkg-deb -c '$package' | grep -q 'lib/kelmar/Bedienungsanleitung.pdf -> ../../share/kelmar/Bedienungsanleitung.pdf' &&
        dpkg-deb --fsys-tarfile '$package' | tar -xO ./usr/share/kelmar/Bedienungsanleitung.pdf | head -c 4 | grep -q %PDF"
fi
check "lintian finds neither errors nor warnings" lintian --allow-root --fail-on error,warning "$package"
check "appstreamcli takes the metadata" appstreamcli validate --no-net "$linux/example.varnhold.kelmar.metainfo.xml"
check "desktop-file-validate takes the entry for menus" desktop-file-validate "$linux/kelmar.desktop"
for page in kelmar kelmar-batch; do
    check_silent "man has no complaint about $page.1" man --warnings -E UTF-8 -Tutf8 -Z -l "$linux/$page.1"
done

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
"${as_root[@]}" tests/package/fresh-machine.sh "$package"
echo "PASS"
