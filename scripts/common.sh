# shellcheck shell=bash
# SPDX-License-Identifier: Apache-2.0
#
# What the scripts share; sourced, not run.

# The root of the source tree; every script works from there.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root" || exit
logs=$root/build/logs

# usage SCRIPT: prints the comment at the head of a script, its help text.
usage() {
    awk 'NR > 3 && !/^#/ { exit } NR > 3 { sub(/^# ?/, ""); print }' "$1"
}

# step TEXT COMMAND...: runs a command, says how long it took, and shows its output only if it fails; the output stays in
# build/logs.
step() {
    local text=$1 log started=$SECONDS
    log=$logs/$(tr -c '[:alnum:]\n' '-' <<<"$text").log
    shift
    mkdir -p "$logs"
    printf '%s ... ' "$text"
    if "$@" >"$log" 2>&1 </dev/null; then
        printf 'done (%d s)\n' $((SECONDS - started))
    else
        local code=$?
        printf 'FAILED (code %d); its output:\n\n' "$code"
        cat "$log"
        printf '\nFailed: %s\nCommand: %s\nOutput kept in %s\n' "$text" "$*" "$log"
        exit 1
    fi
}

# configure PRESET: configures a build directory once; later changes are noticed by the build itself.
configure() {
    [[ -f build/$1/build.ninja ]] || step "Configuring build/$1" cmake --preset "$1"
}

# sources PATTERN...: the files of the project that match, new ones that are not yet committed included.
sources() {
    git -c safe.directory="$root" ls-files --cached --others --exclude-standard --deduplicate -- "$@" |
        while IFS= read -r file; do
            if [[ -f $file ]]; then printf '%s\n' "$file"; fi
        done
}
