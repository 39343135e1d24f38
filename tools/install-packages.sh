#!/usr/bin/env bash
# Installs the Debian or Ubuntu packages that are missing for the purposes named. What cannot be installed is
# told and not waited for: the build says itself what it cannot do without.
#   tools/install-packages.sh build|run|test|package|benchmark ...
set -euo pipefail

packages_build=(g++ cmake ninja-build ccache qtbase5-dev qttools5-dev qttools5-dev-tools libqt5svg5-dev
    libqwt-qt5-dev qttranslations5-l10n zlib1g-dev libqt5sql5-sqlite)
packages_run=(libqt5svg5 qt5-image-formats-plugins libqt5sql5-sqlite fonts-liberation fonts-urw-base35)
packages_test=(xvfb xauth openbox xdotool x11-utils poppler-utils libbenchmark-dev clang)
packages_package=(dpkg-dev file lintian man-db appstream desktop-file-utils shared-mime-info libglib2.0-bin sqlite3
    xvfb xauth openbox xdotool x11-utils poppler-utils)
# What the benchmarks compare with.
packages_benchmark=(libbenchmark-dev sqlite3 python3-numpy)

install_missing() {
    local missing=() as_root=()
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    if ! command -v apt-get >/dev/null; then
        echo "There is no apt-get here. Needed, by their names in Debian: ${missing[*]}" >&2
        return 0
    fi
    echo "installing: ${missing[*]}"
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null ||
        echo "could not install all of: ${missing[*]}" >&2
}

for purpose in "$@"; do
    declare -n wanted="packages_$purpose"
    install_missing "${wanted[@]}"
    # The fuzz targets need the run-time library of just the clang that is there.
    if [ "$purpose" = test ] && command -v clang >/dev/null; then
        install_missing "libclang-rt-$(clang -dumpversion | cut -d. -f1)-dev"
    fi
done
