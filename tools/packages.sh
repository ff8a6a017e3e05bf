# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# Installs the packages of tools/packages.txt that are missing. Sourced after common.sh.

# package_names GROUP...: the names in those groups, one a line.
package_names() {
    awk -v wanted=" $* " '
        { sub(/#.*/, "") }
        /^\[/ { gsub(/[][ \t]/, ""); on = index(wanted, " " $0 " "); next }
        on && NF { print $1 }' tools/packages.txt
}

# missing_packages GROUP...: the names of those that are not installed, one a line. One call of
# dpkg-query, so that it may be asked at every start.
missing_packages() {
    local names
    mapfile -t names < <(package_names "$@")
    # It fails where one is unknown to it, which only says that this one is not installed.
    { dpkg-query -W -f='${Package} ${db:Status-Status}\n' "${names[@]}" 2>/dev/null || true; } |
        awk -v names="${names[*]}" '
            $2 == "installed" { installed[$1] = 1 }
            END {
                count = split(names, all, " ")
                for (i = 1; i <= count; ++i) if (!(all[i] in installed)) print all[i]
            }'
}

apt_update_and_install() {
    local rights=()
    [[ $EUID == 0 ]] || rights=(sudo)
    local apt=("${rights[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y
        -o DPkg::Lock::Timeout=300)
    "${apt[@]}" update # a source that does not answer need not matter
    "${apt[@]}" install --no-install-recommends "$@"
}

# The password is asked for here, where it can be seen: apt's own output goes to a log.
obtain_rights() {
    [[ $EUID == 0 ]] && return
    local by_hand="as root, run: apt-get install --no-install-recommends $*"
    command -v sudo >/dev/null || fail "packages are missing and there is no sudo; $by_hand"
    say "Packages are missing: $*"
    sudo -n true 2>/dev/null || sudo -v ||
        fail "packages are missing and sudo gave no rights; $by_hand"
}

# ensure_packages GROUP...: asks for rights only when something is missing.
ensure_packages() {
    [[ ${VANTRIX_PACKAGES:-} == present ]] && return
    if ! type dpkg-query apt-get >/dev/null 2>&1; then
        fail "this is no Debian: install what tools/packages.txt names in your system's own way," \
            "then start this again with VANTRIX_PACKAGES=present"
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0
    obtain_rights "${missing[@]}"
    stage "Installing ${#missing[@]} packages" packages apt_update_and_install "${missing[@]}"
}

# offer_packages GROUP...: for what can be done without: those that can be had, one by one where not
# all can.
offer_packages() {
    (ensure_packages "$@") && return
    type dpkg-query apt-get >/dev/null 2>&1 || return 0
    [[ $EUID == 0 ]] || sudo -n true 2>/dev/null || return 0
    local missing name
    mapfile -t missing < <(missing_packages "$@")
    for name in "${missing[@]}"; do
        (stage "Installing $name" packages apt_update_and_install "$name") ||
            say "$name could not be installed and is left out"
    done
}
