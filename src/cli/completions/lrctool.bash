# SPDX-License-Identifier: MIT
# bash completion for lrctool. Written by scripts/lrctool_pages.py.
# shellcheck shell=bash

_lrctool() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} options=
    local names='lrc|elrc|srt|vtt|ass|ssa|ttml|txt'
    COMPREPLY=()
    # Of --to=srt each part is a word.
    if [[ $word == = ]]; then word=; elif [[ $before == = ]]; then before=${COMP_WORDS[COMP_CWORD-2]}; fi
    if ((COMP_CWORD == 1)); then
        mapfile -t COMPREPLY < <(compgen -W 'cat dump check shift stretch format expand collapse sort bake-offset convert diff fields extract embed help --help --version' -- "$word")
        return
    fi
    case ${COMP_WORDS[1]} in
    cat) options='--in-place --dry-run --json --encoding --guess-encoding --files-from --null --jobs --quiet --color --help' ;;
    dump) options='--json --encoding --guess-encoding --files-from --null --jobs --quiet --color --help' ;;
    check) options='--audio --beside-audio --json --encoding --guess-encoding --files-from --null --jobs --quiet --color --help' ;;
    shift) options='--in-place --dry-run --json --encoding --guess-encoding --files-from --null --jobs --quiet --color --help' ;;
    stretch) options='--anchor --in-place --dry-run --json --encoding --guess-encoding --files-from --null --jobs --quiet --color --help' ;;
    format) options='--in-place --dry-run --json --encoding --guess-encoding --files-from --null --jobs --quiet --color --help' ;;
    expand) options='--in-place --dry-run --json --encoding --guess-encoding --files-from --null --jobs --quiet --color --help' ;;
    collapse) options='--in-place --dry-run --json --encoding --guess-encoding --files-from --null --jobs --quiet --color --help' ;;
    sort) options='--in-place --dry-run --json --encoding --guess-encoding --files-from --null --jobs --quiet --color --help' ;;
    bake-offset) options='--positive --in-place --dry-run --json --encoding --guess-encoding --files-from --null --jobs --quiet --color --help' ;;
    convert) options='--to --from --output --into --force --dry-run --json --encoding --guess-encoding --files-from --null --jobs --quiet --color --help' ;;
    diff) options='--json --encoding --guess-encoding --quiet --color --help' ;;
    fields) options='--equal --clear --dry-run --json --files-from --null --jobs --quiet --color --help' names='mp3|m4a|mp4|flac|ogg|oga|opus|spx|wav|aif|aiff|aifc|aac|mp2|wma|asf|ape|wv|mpc' ;;
    extract) options='--field --beside --force --dry-run --json --files-from --null --jobs --quiet --help' names='mp3|m4a|mp4|flac|ogg|oga|opus|spx|wav|aif|aiff|aifc|aac|mp2|wma|asf|ape|wv|mpc' ;;
    embed) options='--field --beside --dry-run --force --json --encoding --guess-encoding --files-from --null --jobs --quiet --color --help' names='mp3|m4a|mp4|flac|ogg|oga|opus|spx|wav|aif|aiff|aifc|aac|mp2|wma|asf|ape|wv|mpc' ;;
    help) mapfile -t COMPREPLY < <(compgen -W 'cat dump check shift stretch format expand collapse sort bake-offset convert diff fields extract embed' -- "$word"); return ;;
    *) return ;;
    esac
    case $before in
    --encoding | -e) return ;;
    --files-from) mapfile -t COMPREPLY < <(compgen -f -- "$word"); return ;;
    --jobs) return ;;
    --color) mapfile -t COMPREPLY < <(compgen -W 'auto always never' -- "$word"); return ;;
    --audio) names='mp3|m4a|mp4|flac|ogg|oga|opus|spx|wav|aif|aiff|aifc|aac|mp2|wma|asf|ape|wv|mpc' ;;
    --anchor | -a) return ;;
    --positive) mapfile -t COMPREPLY < <(compgen -W 'earlier later' -- "$word"); return ;;
    --to | -t) mapfile -t COMPREPLY < <(compgen -W 'lrc enhanced srt vtt ass text ttml' -- "$word"); return ;;
    --from | -f) mapfile -t COMPREPLY < <(compgen -W 'lrc enhanced srt vtt ass text ttml' -- "$word"); return ;;
    --output | -o) mapfile -t COMPREPLY < <(compgen -f -- "$word"); return ;;
    --into) mapfile -t COMPREPLY < <(compgen -d -- "$word"); return ;;
    --clear) return ;;
    --field) return ;;
    esac
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
        return
    fi
    [[ ${COMP_WORDS[1]} == embed ]] && names+="|lrc"
    local found
    while IFS= read -r found; do
        if [[ -d $found || ${found,,} =~ \.($names)$ ]]; then COMPREPLY+=("$found"); fi
    done < <(compgen -f -- "$word")
    compopt -o filenames 2>/dev/null
}
complete -F _lrctool lrctool
