# Shared by the scripts beside it: the project's root, and commands that are silent unless they fail.

cd "$(dirname "${BASH_SOURCE[0]}")/.."
jobs=$(nproc)

# quietly COMMAND...: shows what it printed only if it fails.
quietly() {
    local log status=0
    log=$(mktemp)
    "$@" > "$log" 2>&1 || status=$?
    if [ "$status" -ne 0 ]; then
        cat "$log"
        echo "failed: $*" >&2
    fi
    rm -f "$log"
    return "$status"
}

# build_preset PRESET OPTION...: configures and builds one of CMakePresets.json.
build_preset() {
    local preset=$1
    shift
    quietly cmake --preset "$preset" "$@"
    quietly cmake --build --preset "$preset" -j "$jobs"
}
