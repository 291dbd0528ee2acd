#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# The rules that ./dev keeps, tried on a copy of it in a folder with blanks in its name, with
# stand-ins for apt, cmake and the like that only write down how they were called.
#
#     dev_command.sh <source folder>

# shellcheck disable=SC2317  # the checks are called by their names
set -euo pipefail

SOURCE=$1
BOX=$(mktemp -d)
trap 'rm -rf "$BOX"' EXIT
COPY="$BOX/a copy/of it"
export LOG="$BOX/log"
FAILED=0

stand_in() {
    printf '#!/bin/bash\n%s\n' "$2" >"$BOX/bin/$1"
    chmod +x "$BOX/bin/$1"
}

# Every word of a call in brackets, so that a blank inside one shows.
# shellcheck disable=SC2016  # the stand-in's own variables
NOTE='{ printf "%s" "${0##*/}"; printf " [%s]" "$@"; echo; } >>"$LOG"'

set_up() {
    local tool
    mkdir -p "$BOX/bin" "$COPY/scripts" "$COPY/build/dev/bin" "$BOX/else where"
    cp "$SOURCE/dev" "$SOURCE/CMakePresets.json" "$COPY/"
    cp "$SOURCE/scripts/packages.sh" "$COPY/scripts/"
    for tool in cmake clang-format; do stand_in "$tool" "$NOTE"; done
    stand_in apt-get "$NOTE; echo 'the trouble with apt' >&2; exit \${APT_ANSWERS:-0}"
    stand_in sudo "$NOTE; exec \"\$@\""
    stand_in ctest "$NOTE; echo 'the summary of ctest'; exit \${CTEST_ANSWERS:-0}"
    # Answers as if everything were installed, but for the packages named in LACKING.
    # shellcheck disable=SC2016  # the stand-in's own variables
    stand_in dpkg-query 'for word in "${@:4}"; do
        [[ " ${LACKING-} " == *" $word "* ]] || echo "installed $word"
    done'
    cp "$BOX/bin/cmake" "$COPY/build/dev/bin/lyricdesk"
    cp "$BOX/bin/cmake" "$COPY/scripts/demo"
}

# dev_says <words of ./dev>: runs it from another folder; its output is in OUT, its answer in ANSWER.
dev_says() {
    : >"$LOG"
    ANSWER=0
    OUT=$(cd "$BOX/else where" && PATH="$BOX/bin:$PATH" "$COPY/dev" "$@" 2>&1 </dev/null) || ANSWER=$?
}

check() {
    local rule=$1
    shift
    if "$@"; then
        echo "ok      $rule"
    else
        echo "FAILED  $rule"
        sed 's/^/        called: /' "$LOG"
        printf '        answered %s: %s\n' "$ANSWER" "$OUT"
        FAILED=1
    fi
}

called() { grep -qxF -- "$1" "$LOG"; }
calls() { (($(grep -c "^$1" "$LOG") == $2)); }
answered() { ((ANSWER == $1)); }
last_line() { [[ ${OUT##*$'\n'} == "$1" ]]; }
not_said() { [[ $OUT != *"$1"* ]]; }
said() { [[ $OUT == *"$1"* ]]; }

set_up
unset DISPLAY WAYLAND_DISPLAY TQLRC_DEMO_DIR LACKING CTEST_ANSWERS APT_ANSWERS

dev_says build
check 'with every package there, apt is not touched' calls apt-get 0
check 'the preset is dev unless one is named' called 'cmake [--preset] [dev] [--log-level=NOTICE]'

LACKING='g++ libtag1-dev' dev_says build release
check 'what is lacking is installed in one go' called \
    'apt-get [-qq] [-y] [-o] [Dpkg::Use-Pty=0] [install] [--no-install-recommends] [g++] [libtag1-dev]'
check 'the lists are brought up to date once' calls 'apt-get.*update' 1
check 'apt is quiet when it succeeds' not_said 'the trouble with apt'
check 'it is said what is installed and why' said 'for configuring and compiling: g++'
check 'the preset that was named is configured' called 'cmake [--preset] [release] [--log-level=NOTICE]'

APT_ANSWERS=100 LACKING='g++' dev_says build
check 'when apt fails, its words are shown' said 'the trouble with apt'
check 'and nothing is built' calls cmake 0
check 'and the answer says so' answered 1

LACKING='qt6-base-dev' dev_says build model
check 'the lyric model is built without the toolkit' calls apt-get 0

dev_says build nonsense
check 'an unknown preset is refused' answered 1
check 'and nothing is configured for it' calls cmake 0

CTEST_ANSWERS=8 dev_says test asan -R 'one two'
check "ctest's answer is ours" answered 8
check "ctest's summary is the last line" last_line 'the summary of ctest'
check 'preset and options reach ctest' called "ctest [--preset] [asan] [-j] [$(nproc)] [-R] [one two]"

dev_says test -V
check 'an option is not taken for a preset' called "ctest [--preset] [dev] [-j] [$(nproc)] [-V]"

DISPLAY=:77 dev_says run 'my song.mp3' b.flac
check 'with a display the program gets the files' called 'lyricdesk [my song.mp3] [b.flac]'
check 'and the demonstration does not run' calls demo 0

dev_says run 'my song.mp3'
check 'without a display the demonstration runs on the files' called \
    "demo [$COPY/build/dev/bin/lyricdesk] [my song.mp3]"
check 'and says where its pictures are' last_line "dev: screenshots: $COPY/build/demo"

DISPLAY=:77 dev_says run --demo
check 'the demonstration runs on a display too, when asked for' called \
    "demo [$COPY/build/dev/bin/lyricdesk]"

dev_says nonsense
check 'an unknown command is refused' answered 1

exit "$FAILED"
