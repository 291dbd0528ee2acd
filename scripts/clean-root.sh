#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# Proves that the commands of the README need nothing but a bare Debian 12.
#
#     scripts/clean-root.sh <new folder> [command…]       (as root; needs debootstrap)
#
# Makes a minimal Debian in the folder, from the mirror and through the proxy that this machine's
# apt uses, clones the last commit into it, and runs the commands there, each timed; './dev build'
# and './dev test' when none are given. Of this machine it sees nothing else, but for the folder
# `shared` beside the repository, which the tests take cases from; that is copied, if there is one.
# The folder is left as it is, to be looked at.

set -euo pipefail

REPOSITORY=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
RELEASE=bookworm
INSIDE=/srv/TQLrcEditor

say() { printf 'clean-root: %s\n' "$*"; }
fail() {
    say "$*" >&2
    exit 1
}

# timed <what> <command…>: runs it and says how long it took.
timed() {
    local what=$1 begin=$SECONDS status=0
    shift
    "$@" || status=$?
    say "$what: $((SECONDS - begin)) s, answered $status"
    return "$status"
}

# Address and suite of each Debian archive that this machine's apt knows.
debian_archives() {
    # shellcheck disable=SC2016  # apt's own variables
    apt-get indextargets --format '$(ORIGIN) $(REPO_URI) $(RELEASE)' 'Created-By: Packages' |
        awk '$1 == "Debian" { print $2, $3 }' | sort -u
}

make_base() {
    local root=$1 mirror proxy
    mirror=$(debian_archives | awk -v suite="$RELEASE" '$2 == suite { print $1; exit }')
    [[ -n $mirror ]] || fail "this machine's apt knows no $RELEASE"
    eval "$(apt-config shell proxy Acquire::http::Proxy)"
    if [[ -n ${proxy-} ]]; then export http_proxy=$proxy https_proxy=$proxy; fi
    debootstrap --variant=minbase "$RELEASE" "$root" "$mirror" >"$root.log" 2>&1 ||
        fail "debootstrap failed; see $root.log"
}

configure_base() {
    local root=$1
    debian_archives | sed 's/.*/deb & main/' >"$root/etc/apt/sources.list"
    apt-config dump | grep -E '^Acquire::(http|https|ftp|Retries)' \
        >"$root/etc/apt/apt.conf.d/90machine" || true
    cp -L /etc/resolv.conf /etc/hosts "$root/etc/"
    git clone --quiet --no-hardlinks "$REPOSITORY" "$root$INSIDE"
    if [[ -d $REPOSITORY/../shared ]]; then
        cp -rL "$REPOSITORY/../shared" "$root${INSIDE%/*}/"
    fi
}

# Mounts go into a namespace of their own, so they end with the command.
inside() {
    local root=$1 command=$2
    # shellcheck disable=SC2016  # expanded by the inner shell
    unshare --mount --pid --fork bash -c '
        mount -t proc proc "$1/proc"
        mkdir -p "$1/dev/shm" && mount -t tmpfs tmpfs "$1/dev/shm"
        exec chroot "$1" env -i HOME=/root LANG=C.UTF-8 \
            PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
            bash -c "cd $2 && $3" </dev/null' - "$root" "$INSIDE" "$command"
}

main() {
    (($#)) || fail "usage: clean-root.sh <new folder> [command…]"
    local root=$1 command
    shift
    ((EUID == 0)) || fail "only root can change root"
    command -v debootstrap >/dev/null || fail "needs the package debootstrap"
    [[ ! -e $root ]] || fail "$root is there already"
    if ((!$#)); then set -- './dev build' './dev test'; fi
    mkdir -p "$(dirname "$root")"
    root=$(realpath -m "$root")
    timed "a minimal Debian in $root" make_base "$root"
    configure_base "$root"
    for command in "$@"; do
        timed "$command" inside "$root" "$command"
    done
    say "all went well; remove it with: rm -rf --one-file-system $root"
}

main "$@"
