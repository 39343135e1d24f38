#!/usr/bin/env bash
# Reads the product's code with cppcheck and clang-tidy; a finding ends it with an error. Needs a configuration
# of its own, since clang does not take the compiler's precompiled headers.
#   tools/static-checks.sh
set -euo pipefail
cd "$(dirname "$0")/.."
folders=(app browser curve diagram import report tools)
build=build/static-checks

echo "== cppcheck"
# Where the toolkit's macros and headers are unknown to it, the compiler has the say.
cppcheck -j "$(nproc)" --enable=warning,performance,portability --inline-suppr --library=qt --std=c++17 \
    --language=c++ --quiet -I. --suppress=missingInclude --suppress=unknownMacro \
    --suppress=CastIntegerToAddressAtReturn --error-exitcode=1 "${folders[@]}"

echo "== clang-tidy"
cmake --preset release -B "$build" -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON \
    -DKELMAR_TESTS=OFF -DKELMAR_BENCHMARKS=OFF >/dev/null
# The build makes forms and meta objects, and without precompiled headers each source must name what it uses.
cmake --build "$build" -- -k 0 | tail -n 1
git ls-files '*.cpp' | grep -E "^($(IFS='|' && echo "${folders[*]}"))/" | grep -v Windows |
    xargs -P "$(nproc)" -n 4 clang-tidy -p "$build" --quiet --extra-arg=-Wno-unknown-warning-option 2> >(grep -v 'warnings generated' >&2)
echo "clean"
