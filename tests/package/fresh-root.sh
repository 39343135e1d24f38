#!/usr/bin/env bash
# Makes a root folder that holds a machine with nothing installed but what a package asks for:
#   fresh-root.sh PACKAGE.deb FOLDER
# The files come from the packages that are installed here: the essential ones, and what PACKAGE.deb depends on,
# with what those depend on in turn. Nothing is loaded from anywhere. The folder has a dpkg of its own, which knows
# just these packages, so that installing there shows whether the list of dependencies is complete. Needs root.
set -euo pipefail
package=$1
root=$2

# Names the packages wanted, one in a line; what is wanted and not installed here is left for dpkg to miss.
wanted_packages() {
    {
        printf 'kelmar\tall\tyes\t%s\t\n' "$(dpkg-deb -f "$package" Depends)"
        dpkg-query -W -f='${Package}\t${Architecture}\t${Essential}\t${Pre-Depends}, ${Depends}\t${Provides}\t${db:Status-Status}\n' |
            awk -F'\t' '$6 == "installed"'
    } | awk -F'\t' -v native="$(dpkg --print-architecture)" '
        function plain(name) { sub(/\(.*/, "", name); sub(/:.*/, "", name); gsub(/ /, "", name); return name }
        $2 != "all" && $2 != native { next }
        {
            needs[$1] = $4
            if ($3 == "yes") queue[++last] = $1
            count = split($5, provided, ",")
            for (i = 1; i <= count; i++) if (plain(provided[i]) != "") provider[plain(provided[i])] = $1
        }
        END {
            for (first = 1; first <= last; first++) {
                if (queue[first] in done) continue
                done[queue[first]] = 1
                clauses = split(needs[queue[first]], clause, ",")
                for (i = 1; i <= clauses; i++) {
                    choices = split(clause[i], choice, "|")
                    found = ""
                    for (j = 1; j <= choices && found == ""; j++) if (plain(choice[j]) in needs) found = plain(choice[j])
                    for (j = 1; j <= choices && found == ""; j++) found = provider[plain(choice[j])]
                    if (found != "") queue[++last] = found
                }
            }
            delete done["kelmar"]
            for (name in done) print name
        }' | sort
}

mapfile -t packages < <(wanted_packages)

mkdir -p "$root"/{dev,etc,home,proc,run,tmp,usr,var/lib/dpkg/{info,triggers,updates}}
chmod 1777 "$root/tmp"
for folder in bin sbin lib lib32 lib64 libx32; do
    [ ! -L /$folder ] || { cp -a /$folder "$root/$folder" && mkdir -p "$root/usr/$folder"; }
done

# Everything but what only people read.
dpkg-query -L "${packages[@]}" | grep '^/' | grep -v -E '^/\.$|^/usr/share/(doc|man|locale|info|lintian|bug)/.' |
    sed 's,^/,,' | sort -u |
    tar -C / --no-recursion --ignore-failed-read --warning=no-failed-read -T - -c |
    tar -C "$root" --keep-directory-symlink -x
# What the packages made when they were configured: settings of fonts, names of one program for another.
cp -a /etc/fonts "$root/etc/"
mkdir -p "$root/etc/alternatives"
find /usr/bin /usr/sbin -lname '/etc/alternatives/*' | while read -r name; do
    if [ -e "$root$(readlink -f "$name")" ]; then
        cp -a "$name" "$root$name"
        cp -a "$(readlink "$name")" "$root/etc/alternatives/"
    fi
done
ldconfig -r "$root"

for package in "${packages[@]}"; do
    for file in /var/lib/dpkg/info/"$package".* /var/lib/dpkg/info/"$package":*; do
        [ ! -e "$file" ] || cp -a "$file" "$root/var/lib/dpkg/info/"
    done
    dpkg-query -s "$package"
    echo
done >"$root/var/lib/dpkg/status"
cp -a /var/lib/dpkg/info/format "$root/var/lib/dpkg/info/" 2>/dev/null || true
: >"$root/var/lib/dpkg/available"

printf 'root:x:0:0::/root:/bin/sh\n' >"$root/etc/passwd"
printf 'root:x:0:\n' >"$root/etc/group"
for device in null zero random urandom; do
    cp -a /dev/$device "$root/dev/"
done
echo "${#packages[@]} packages, $(du -sm "$root" | cut -f1) MB"
