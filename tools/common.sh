# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# What ./run and ./test share: stages with a log each, and a terminal-neutral environment.
# Sourced from the top folder of the checkout. A stage's command runs where `set -e` does not
# reach, so a function that is one chains its steps.

log_folder=build/logs

say() { printf '%s\n' "$*"; }

fail() {
    printf '%s: %s\n' "${program:-vantrix}" "$*" >&2
    exit 1
}

# The end of a log, or, where it is a build's, what follows the first step that failed.
show_reason() {
    if grep -q '^FAILED' "$1"; then
        awk '/^FAILED/ { on = 1 } on && ++count <= 60' "$1"
    else
        tail -n 60 "$1"
    fi
}

# stage WORDS LOG COMMAND...: one line for the user; what the command says goes to the log, which
# is shown when the command fails.
stage() {
    local words=$1 log=$log_folder/$2.log
    shift 2
    mkdir -p "$log_folder"
    local begun=$SECONDS status=0
    printf '%s ... ' "$words"
    "$@" >"$log" 2>&1 </dev/null || status=$?
    if ((status == 0)); then
        say "done ($((SECONDS - begun)) s)"
        return
    fi
    say "failed"
    show_reason "$log" >&2
    printf '%s: that failed; the whole log is %s\n' "${program:-vantrix}" "$log" >&2
    return "$status"
}

# Qt and the compilers expect UTF-8; a bare machine starts with the C locale.
ensure_utf8() {
    [[ $(locale charmap 2>/dev/null) == UTF-8 ]] && return
    unset LC_ALL
    export LC_CTYPE=C.UTF-8
}
