# Checks that say what they look at. To be sourced.

# check WHAT COMMAND...: the command has to succeed; what it prints is shown if it does not.
check() {
    local what=$1 output
    shift
    if output=$("$@" 2>&1); then
        echo "ok    $what"
    else
        printf 'FAIL  %s\n      %s\n%s\n' "$what" "$*" "$output" >&2
        exit 1
    fi
}

# check_not WHAT COMMAND...: the command has to fail.
check_not() {
    local what=$1
    shift
    check "$what" sh -c '! "$@"' not "$@"
}

# check_silent WHAT COMMAND...: the command has to succeed and to complain about nothing.
check_silent() {
    local what=$1
    shift
    check "$what" sh -c 'said=$("$@" 2>&1 >/dev/null) && [ -z "$said" ] || { echo "$said"; exit 1; }' silent "$@"
}

# check_same WHAT EXPECTED ACTUAL
check_same() {
    if [ "$2" = "$3" ]; then
        echo "ok    $1"
    else
        printf 'FAIL  %s\n      expected: %s\n      actual:   %s\n' "$1" "$2" "$3" >&2
        exit 1
    fi
}
