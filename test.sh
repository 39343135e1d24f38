#!/usr/bin/env bash
# The whole proof: installs what is missing, builds with warnings as errors, runs every test offscreen and in
# real windows, installs the Debian package on a fresh machine and works with it, then the suite under
# AddressSanitizer and UndefinedBehaviorSanitizer, then each fuzz target for a short while where clang is there.
#   ./test.sh            all of it
#   ./test.sh release    one of the passes: release, package, asan, fuzz
set -euo pipefail
cd "$(dirname "$0")"
passes=("$@")
[ ${#passes[@]} -gt 0 ] || passes=(release package asan fuzz)
jobs=$(nproc)

tools/install-packages.sh build run test

suite() {
    echo "=== $1: build"
    cmake --preset "$1" >/dev/null
    cmake --build --preset "$1" -- -k 0 | tail -n 3
    echo "=== $1: tests"
    ctest --test-dir "build/$1" --output-on-failure --no-tests=error -j "$jobs"
}

for pass in "${passes[@]}"; do
    case $pass in
    release | asan) suite "$pass" ;;
    package)
        echo "=== package"
        tools/install-packages.sh package
        cmake --preset release >/dev/null
        tests/package/run.sh
        ;;
    fuzz)
        if command -v clang++ >/dev/null; then
            echo "=== fuzz"
            tests/fuzz/run.sh "${FUZZ_SECONDS:-20}"
        else
            echo "=== fuzz: left out, there is no clang++"
        fi
        ;;
    *)
        echo "unknown pass: $pass" >&2
        exit 2
        ;;
    esac
done
