#!/usr/bin/env bash
# Runs a Windows program under Wine without a display of its own.
#   run-wine.sh PROGRAM.exe [ARGUMENT ...]
# Within wine-session.sh the program joins that session; by itself it gets one of its own, which takes some
# seconds longer. The sysroot's libraries are found, so that a program need not be deployed, and programs in the
# folder that KELMAR_WINE_PATH names.
set -u
here=$(cd "$(dirname "$0")" && pwd)
[ -n "${KELMAR_WINE_SESSION:-}" ] || exec "$here/wine-session.sh" "$0" "$@"

# Wine keeps the variables of the toolkit from the programs; what is called WINE<name> arrives as <name>.
for name in "${!QT_@}"; do
    export "WINE$name=${!name}"
done
export WINEPATH="Z:${KELMAR_WIN64_SYSROOT//\//\\}\\bin${KELMAR_WINE_PATH:+;Z:${KELMAR_WINE_PATH//\//\\}}"
exec "$KELMAR_WINE" "$@"
