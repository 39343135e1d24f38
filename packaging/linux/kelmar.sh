#!/bin/sh
# Starts Kelmar in the folder of the program: the languages it offers are those that lie in "Translations" of
# the working directory. Files named on the command line keep their meaning.
set -e
programs=$(dirname "$(readlink -f "$0")")/../lib/kelmar
for argument do
    shift
    case $argument in
    /*) ;;
    *) [ ! -e "$argument" ] || argument=$PWD/$argument ;;
    esac
    set -- "$@" "$argument"
done
cd "$programs"
exec ./kelmar "$@"
