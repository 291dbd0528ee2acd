# shellcheck shell=bash
# SPDX-License-Identifier: MIT
#
# What each command needs of Debian 12, in groups that say why, and how it gets there.
# Sourced by ./dev.

declare -A PACKAGES WHY

WHY[tools]="configuring and compiling"
PACKAGES[tools]="git cmake ninja-build g++ pkgconf"
WHY[qt]="the widgets, the forms and their translations"
PACKAGES[qt]="qt6-base-dev libqt6opengl6-dev qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools
    qt6-svg-dev qt6-translations-l10n"
WHY[audio]="playing and the waveform"
PACKAGES[audio]="libgstreamer1.0-dev libgstreamer-plugins-base1.0-dev gstreamer1.0-plugins-base
    gstreamer1.0-plugins-good gstreamer1.0-plugins-ugly gstreamer1.0-libav
    gstreamer1.0-alsa gstreamer1.0-pulseaudio"
WHY[tags]="reading and writing the tags of audio files"
PACKAGES[tags]="libtag1-dev libxxhash-dev zlib1g-dev"
WHY[tests]="the tests and their sample files"
PACKAGES[tests]="libgtest-dev libgmock-dev ffmpeg fonts-dejavu-core pulseaudio pulseaudio-utils openssl python3"
WHY[bench]="the benchmarks"
PACKAGES[bench]="libbenchmark-dev"
WHY[format]="formatting"
PACKAGES[format]="git clang-format"
WHY[lint]="static analysis"
PACKAGES[lint]="clang-tidy shellcheck"
WHY[wayland]="showing windows on Wayland"
PACKAGES[wayland]="qt6-wayland"
WHY[screen]="a private screen, and someone who presses its keys and reads what it shows"
PACKAGES[screen]="xvfb openbox xdotool imagemagick ffmpeg fonts-droid-fallback
    fonts-noto-color-emoji at-spi2-core dbus python3 python3-gi gir1.2-atspi-2.0"

# Those of the given packages that are not installed.
missing_packages() {
    local installed package
    installed=" $(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
        awk '$1 == "installed" { printf "%s ", $2 }') "
    for package in "$@"; do
        [[ $installed == *" $package "* ]] || printf '%s ' "$package"
    done
}

# apt-get as root, asking nothing; what it has to say is shown only when it fails.
apt_get() {
    local as_root=() log
    if ((EUID != 0)); then
        command -v sudo >/dev/null || fail "installing them needs root, or sudo"
        as_root=(sudo)
    fi
    if ! log=$("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -qq -y -o Dpkg::Use-Pty=0 "$@" 2>&1 </dev/null); then
        printf '%s\n' "$log" >&2
        fail "apt-get $1 failed"
    fi
}

# need <group>…: installs what the groups lack. Where nothing is lacking, apt is not touched.
need() {
    local group lacking all=()
    if ! command -v dpkg-query >/dev/null; then
        say "not a Debian system: nothing is installed, CMake will name what is missing"
        return
    fi
    for group in "$@"; do
        # shellcheck disable=SC2086  # a list of words
        lacking=$(missing_packages ${PACKAGES[$group]})
        [[ -n $lacking ]] || continue
        say "installing for ${WHY[$group]}: ${lacking% }"
        # shellcheck disable=SC2206  # a list of words
        all+=($lacking)
    done
    ((${#all[@]})) || return 0
    apt_get update
    apt_get install --no-install-recommends "${all[@]}"
}
