# The voice of the scripts; to be sourced. Everything goes to standard error, so that a program's own output stays clean.

# One line for each thing that a script does.
say() { printf '==> %s\n' "$*" >&2; }

# Stops the script. Each argument is one line; the last ones say what to do.
fail() {
    printf 'Error: %s\n' "$1" >&2
    shift
    [ $# -eq 0 ] || printf '       %s\n' "$@" >&2
    exit 1
}
