# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# clang-format and clang-tidy over what changed. Sourced after common.sh.

tidy_at_most=20

our_sources() { grep -E '^(src|tests|bench|fuzz)/.*\.(h|cpp|mm)$' || true; }

in_git() { git rev-parse --verify -q HEAD >/dev/null 2>&1; }

# The commit that the work at hand starts from; nothing where that cannot be told.
base_commit() {
    local base
    [[ -z ${CI:-} ]] || return 0
    base=$(git merge-base HEAD origin/main 2>/dev/null || true)
    if [[ -z $base || $base == "$(git rev-parse HEAD)" ]]; then
        base=$(git rev-parse --verify -q HEAD~ || true)
    fi
    printf '%s' "$base"
}

all_sources() { find . -path ./build -prune -o -type f -printf '%P\n' | our_sources | sort; }

# changed_sources: our source files that differ from the base commit, new ones included.
changed_sources() {
    {
        git diff --name-only --diff-filter=d "$1"
        git ls-files --others --exclude-standard
    } | our_sources | sort -u
}

format_files() { xargs -r clang-format-19 --dry-run --Werror <"$1"; }

check_format() {
    local base='' list=build/logs/format.list
    mkdir -p "$log_folder"
    in_git && base=$(base_commit)
    if [[ -n $base ]]; then changed_sources "$base" >"$list"; else all_sources >"$list"; fi
    stage "Checking the format of $(wc -l <"$list") files" format format_files "$list"
}

# compiled_sources: those of the files given that this machine compiles, alone or as part of a
# larger one; a header is checked with the files that use it.
compiled_sources() {
    local file
    while read -r file; do
        if grep -qF "\"file\": \"$PWD/$file\"" build/release/compile_commands.json ||
            grep -qsF "\"$PWD/$file\"" build/release/src/*/*/CMakeFiles/*/Unity/*.cxx; then
            printf '%s\n' "$file"
        fi
    done
}

# The release build's flags are those of its own compiler, which has warnings that clang has not.
tidy_files() {
    xargs -r -n 1 -P "$(nproc)" clang-tidy-19 --quiet -p build/release \
        --extra-arg=-Wno-unknown-warning-option --extra-arg=-Wno-ignored-gch <"$1"
}

check_tidy_of_changes() {
    local base='' list=build/logs/tidy.list count
    in_git && base=$(base_commit)
    [[ -n $base ]] || return 0
    changed_sources "$base" | compiled_sources >"$list"
    count=$(wc -l <"$list")
    if ((count > tidy_at_most)); then
        say "Leaving clang-tidy to ./test --all, since $count source files changed"
    elif ((count > 0)); then
        stage "Checking $count files with clang-tidy" tidy tidy_files "$list"
    fi
}
