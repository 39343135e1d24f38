#!/usr/bin/env bash
# Installs the package into a fresh root, where two ordinary users do the main job and share favourites and
# catalogue; upgrades it, removes it, installs it again, purges it.
#   fresh-machine.sh PACKAGE.deb      needs root, xvfb, openbox, xdotool, pdftotext, gio
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
. "$here/checks.sh"
package=$1
work=$(mktemp -d)
root=$work/root
data=$root/var/lib/Varnhold/Kelmar
catalogue=$data/modules.db
# The names in a mode of a file are of this machine; the numbers are of both.
umask 022
trap 'rm -rf "$work"' EXIT

in_root() { dpkg --root="$root" "$@"; }
# as USER COMMAND...: in the fresh root, as that user alone.
as() {
    local user=$1
    shift
    "$here/as-user.sh" "$root" "$user" "$@"
}
sums() { (cd "$data" && sha256sum -- *); }

# A package like this one in another version, whose catalogue has another row.
next_version() {
    dpkg-deb -R "$package" "$work/next"
    sed -i 's/^Version: .*/&+next/' "$work/next/DEBIAN/control"
    sqlite3 "$work/next/usr/share/kelmar/modules.db" \
        "INSERT INTO Modules (Description, Voc, Isc) VALUES ('Module of the next version', 40, 10)"
    rm "$work/next/DEBIAN/md5sums"
    dpkg-deb -b "$work/next" "$work/next.deb"
}

echo "--- a fresh machine"
check "a machine with nothing but the package's dependencies is made" "$here/fresh-root.sh" "$package" "$root"
for number in 1 2; do
    user=$(sed -n ${number}p "$here/users")
    echo "$user:x:2000$number:2000$number::/home/$user:/bin/sh" >>"$root/etc/passwd"
    echo "$user:x:2000$number:" >>"$root/etc/group"
    install -d -m 0700 -o 2000$number -g 2000$number "$root/home/$user"
done
read -r first second <<<"$(paste -sd' ' "$here/users")"
check "the package installs, its dependencies being complete" in_root -i "$package"
check_same "everybody may write to the shared folder" 777 "$(stat -c %a "$data")"
check_same "everybody may write to the catalogue" 666 "$(stat -c %a "$catalogue")"
check "the catalogue is the one that came" cmp "$root/usr/share/kelmar/modules.db" "$catalogue"
check "the folder of the menu's entry is the one with the languages" \
    test -s "$root$(sed -n 's/^Path=//p' "$root/usr/share/applications/kelmar.desktop")/Translations/kelmar_de.qm"
check_same "no link leads nowhere" "" "$(chroot "$root" find /usr/lib/kelmar /usr/share/kelmar /usr/bin/kelmar /usr/bin/kelmar-batch -xtype l)"
check_same "the package has the version of the program" \
    "Kelmar V$(dpkg-deb -f "$package" Version).0" "$(as "$first" kelmar-batch --version)"
manual=$(zcat "$root/usr/share/man/man1/kelmar-batch.1.gz" | sed 's/\\-/-/g')
for word in $(as "$first" kelmar-batch --help | grep -o -E '^ +(--)?[a-z][a-z-]+|--[a-z]+' | tr -d ' ' | sort -u); do
    check "the manual page of kelmar-batch tells of $word" grep -q -F -e "$word" <<<"$manual"
done
check_same "the users' folder for data is the shared one" /var/lib/Varnhold/Kelmar "$(as "$second" kelmar-batch data-folder)"
check_not "a user may not change the program" as "$first" sh -c 'echo >> /usr/lib/kelmar/kelmar'

echo "--- the desktop"
export XDG_DATA_HOME=$work/none XDG_DATA_DIRS=$root/usr/share
while read -r suffix type; do
    # A curve file is a database to those who look inside only.
    echo "Anything" >"$work/file.$suffix"
    [ "$suffix" != kelcrv ] || cp "$catalogue" "$work/file.$suffix"
    check_same "a file *.$suffix is a $type" "application/x-kelmar-$type" \
        "$(gio info -a standard::content-type "$work/file.$suffix" | sed -n 's/.*standard::content-type: //p')"
    check "it has an icon, and opens with Kelmar" sh -c "
        test -s '$root/usr/share/icons/hicolor/16x16/mimetypes/application-x-kelmar-$type.png' &&
        test -s '$root/usr/share/icons/hicolor/scalable/mimetypes/application-x-kelmar-$type.svg' &&
        grep -q '^MimeType=.*application/x-kelmar-$type;' '$root/usr/share/applications/kelmar.desktop' &&
        grep -q '<mediatype>application/x-kelmar-$type<' '$root'/usr/share/metainfo/*.xml"
done <<'TYPES'
kelir inspection-report
kelatr array-test-report
kelvc verification-certificate
kelchk checklist
kelid installation-diagram
kelcrv curve-data
TYPES
unset XDG_DATA_HOME XDG_DATA_DIRS

echo "--- the main job, in windows"
"$here/../support/in-real-windows.sh" "$here/two-users.sh" "$root" "$first" "$second"

echo "--- the main job, without a window"
cat >"$root/home/modules.csv" <<'TABLE'
Name,Technology,V_oc_ref,I_sc_ref,V_mp_ref,I_mp_ref,alpha_sc,beta_oc,R_s
Units,,V,A,V,A,A/K,V/K,Ohm
[0],cec_material,cec_v_oc_ref,cec_i_sc_ref,cec_v_mp_ref,cec_i_mp_ref,cec_alpha_sc,cec_beta_oc,cec_r_s
Example 410,Mono-c-Si,37.45,13.95,31.45,13.04,0.0063,-0.0936,0.19
TABLE
examples=/usr/share/doc/kelmar/examples
results="$examples/Sunny Lane 12/Roof south.csv"
check "the second user imports results into a new report and prints it" as "$second" kelmar-batch --language en \
    import-results "$results" --rows 1-4 --report roof.kelatr --new --pdf roof.pdf
check "the PDF has the measured voltage" sh -c "pdftotext -layout '$root/home/$second/roof.pdf' - | grep -q 'Voc (V) *6[0-9][0-9]\.'"
for document in "Sonnenweg 12/Prüfbescheinigung.kelvc" "Sunny Lane 12/Roof south.kelid"; do
    check "the example $document can be printed" as "$second" kelmar-batch pdf "$examples/$document" example.pdf --force
done
check "pictures in the format tiff can be read" sh -c "test -e '$root'/usr/lib/*/qt5/plugins/imageformats/libqtiff.so"
check "the second user makes a curve file" as "$second" kelmar-batch --language en import-curves "$results" --into roof.kelcrv --new
check "it holds the curves" test "$(sqlite3 "$root/home/$second/roof.kelcrv" 'SELECT count(*) FROM Curves')" -gt 0
check "the first user adds a module to the catalogue" as "$first" kelmar-batch import-modules /home/modules.csv
check_same "the second user finds it there" '"Example 410": skipped, it is in the catalogue already' \
    "$(as "$second" kelmar-batch --language en import-modules /home/modules.csv | head -n 1)"
check "the second user adds another one" as "$second" sh -c \
    "sed s/410/420/ /home/modules.csv >more.csv && kelmar-batch import-modules more.csv"
check_same "the catalogue has both" 2 \
    "$(sqlite3 "$catalogue" "SELECT count(*) FROM Modules WHERE Description LIKE 'Example 4_0'")"

echo "--- upgrade, removal, purge"
before=$(sums)
check "the shared folder has favourites and catalogue" sh -c "echo '$before' | grep -q default.kelatr && echo '$before' | grep -q modules.db"
check "a next version is made" next_version
check "it upgrades the installed one" in_root -i "$work/next.deb"
check_same "an upgrade leaves favourites and catalogue as they are" "$before" "$(sums)"
check "the package is removed" in_root -r kelmar
check_not "the program is gone" test -e "$root/usr/bin/kelmar"
check_same "a removal leaves favourites and catalogue as they are" "$before" "$(sums)"
chmod 2770 "$data"
check "the package is installed again" in_root -i "$package"
check_same "a new installation leaves favourites and catalogue as they are" "$before" "$(sums)"
check_same "it leaves the folder's permissions as the administrator set them" 2770 "$(stat -c %a "$data")"
rm "$catalogue"
ln -s /etc/planted "$catalogue"
check "the package is configured with a link planted in place of the catalogue" in_root -i "$work/next.deb"
check_not "what the link names was not written" test -e "$root/etc/planted"
check "the package is purged" in_root -P kelmar
check_not "a purge takes the shared folder away" test -e "$root/var/lib/Varnhold"
check "the users' documents stay" test -s "$root/home/$second/roof.kelatr"
check_same "nothing else of the package stays" "" "$(find "$root/usr" "$root/etc" -ipath '*kelmar*')"
