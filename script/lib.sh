# Shared by the scripts of this folder; sourced, never run.
# shellcheck shell=bash

set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

jobs=$(nproc 2>/dev/null || echo 2)

# What ccache must overlook to keep sources that use precompiled headers.
export CCACHE_SLOPPINESS=${CCACHE_SLOPPINESS:-pch_defines,time_macros,include_file_mtime,include_file_ctime}

say() { printf '%s\n' "$*" >&2; }

die() {
    say "$(basename "$0"): $*"
    exit 1
}

step_names=()
step_seconds=()

# step <headline> <command...>: runs the command below its headline and keeps the time it took. The whole
# script ends with the first command that fails.
step() {
    local name=$1 start=$SECONDS status=0
    shift
    printf '\n==> %s\n' "$name"
    # "set -e" holds inside a function only while nobody asks how it ended, hence the child shell and no "||".
    set +e
    (
        set -e
        "$@"
    )
    status=$?
    set -e
    local spent=$((SECONDS - start))
    if ((status != 0)); then
        printf '\n==> FAILED: %s (after %d s)\n' "$name" "$spent"
        exit 1
    fi
    step_names+=("$name")
    step_seconds+=("$spent")
    printf '==> %s: done in %d s\n' "$name" "$spent"
}

# The table of all steps so far.
step_summary() {
    local i total=0
    printf '\n'
    for i in "${!step_names[@]}"; do
        printf '%6d s  %s\n' "${step_seconds[$i]}" "${step_names[$i]}"
        total=$((total + step_seconds[i]))
    done
    printf '%6d s  all\n' "$total"
}

# build_preset <preset> <targets or ""> [cmake arguments...]
build_preset() {
    local preset=$1 targets=$2
    shift 2
    cmake --preset "$preset" "$@" -Wno-dev >/dev/null
    # shellcheck disable=SC2086 # several targets are several words
    cmake --build "build/$preset" -j"$jobs" ${targets:+--target $targets} -- --quiet
}
