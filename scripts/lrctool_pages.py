#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the manual's page and the completions of lrctool from what the program says of itself.

    lrctool_pages.py LRCTOOL           writes them
    lrctool_pages.py --check LRCTOOL   exits with 1 when they are not what would be written
"""

import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
LYRIC_NAMES = "lrc elrc srt vtt ass ssa ttml txt"
AUDIO_NAMES = "mp3 m4a mp4 flac ogg oga opus spx wav aif aiff aifc aac mp2 wma asf ape wv mpc"
AUDIO_COMMANDS = {"fields": "AUDIO…", "extract": "AUDIO", "embed": "AUDIO LYRIC"}


def say(*arguments):
    return subprocess.run([TOOL, *arguments], check=True, capture_output=True, text=True, encoding="utf-8").stdout


class Command:
    """A command, as its help and the table of options tell."""

    def __init__(self, name, summary):
        self.name, self.summary = name, summary
        text = say(name, "--help")
        head, rest = text.split("\nExamples:\n\n", 1)
        examples, rest = rest.split("\nOptions:\n\n", 1)
        usage, self.description = head.split("\n\n", 2)[1:]
        self.usage = usage.removeprefix("Usage: ").strip()
        self.examples = examples.strip("\n")
        self.option_help = self.read_options(rest.split("\n\nThe exit status", 1)[0])
        self.options = []  # (long, letter, value, choices)

    @staticmethod
    def read_options(text):
        """The words on each option, by its long name."""
        found, name = {}, None
        for line in text.splitlines():
            head = re.match(r" {2}(?:-\w, | {4})(--[\w-]+)(?: [A-Z=]+)?(?: {2,}(.*))?$", line)
            if head:
                name = head[1]
                found[name] = head[2] or ""
            else:
                found[name] = (found[name] + " " + line.strip()).strip()
        return found


def read_commands():
    commands = []
    for line in say("--help").splitlines():
        match = re.match(r" {2}([a-z-]+) {2,}(\S.*)$", line)
        if match and match[1] != "lrctool":
            commands.append(Command(match[1], match[2]))
    by_name = {command.name: command for command in commands}
    for line in say("--option-table").splitlines():
        name, *option = line.split("\t")
        by_name[name].options.append(tuple("" if field == "-" else field for field in option))
    assert all(command.options for command in commands)
    return commands


# The manual's page.


def roff(text):
    text = text.replace("\\", "\\e").replace("-", "\\-").replace("'", "\\(aq").replace("…", "\\[u2026]")
    return "\n".join("\\&" + line if line.startswith((".", "'")) else line for line in text.splitlines())


def paragraphs(text):
    """Prose as paragraphs, indented lines as they stand."""
    out = []
    for block in text.strip("\n").split("\n\n"):
        if block.startswith("  "):
            out.append(".RS\n.nf\n" + roff(block) + "\n.fi\n.RE")
        else:
            out.append(roff(block))
    return "\n.PP\n".join(out)


def option_line(option):
    name, letter, value, _ = option
    line = (f"\\fB\\-{letter}\\fR, " if letter else "") + "\\fB" + name.replace("-", "\\-") + "\\fR"
    return line + (f" \\fI{value}\\fR" if value else "")


def manual(commands):
    out = [
        '.\\" SPDX-License-Identifier: MIT',
        '.\\" Written by scripts/lrctool_pages.py: change the help of the program, not this page.',
        '.TH LRCTOOL 1 "" "TQLrcEditor" "User Commands"',
        ".SH NAME\nlrctool \\- looks at, checks and changes time\\-synchronised lyrics (LRC)",
        ".SH SYNOPSIS\n.B lrctool\n.I COMMAND\n[options] [\\fIFILE\\fR\\[u2026]]",
        ".SH DESCRIPTION",
        paragraphs(
            "Nothing is changed that you did not ask for: what a command does not touch comes back byte for byte.\n"
            "Files are only written with --in-place, --output and --into, and by 'embed', 'extract --beside' and\n"
            "'fields --equal' or '--clear', each whole or not at all: a complete new file is made beside the old one and takes its name, a link is written through, and a file that stays\n"
            "the same is left alone.\n\n"
            "'-' is standard input, and so is no file. A folder stands for every lyric in it (*.lrc), however deep; hidden\n"
            "names and folders behind links are passed over. Several files are worked on at once, on all cores, and the\n"
            "results come in the order of the files. Complaints go to standard error."
        ),
        ".SH COMMANDS",
    ]
    for command in commands:
        out.append(f".SS \"{roff(command.name)} \\- {roff(command.summary)}\"")
        out.append("\\fB" + roff(command.usage) + "\\fR\n.PP\n" + paragraphs(command.description))
        out.append(".PP\n.nf\n" + roff(command.examples) + "\n.fi")
        out.append(".PP\nOptions: " + ", ".join(option_line(option) for option in command.options) + ".")
    out.append(".SH OPTIONS")
    seen = {}
    for command in commands:
        for option in command.options:
            seen.setdefault(option, []).append(command)
    for option, where in seen.items():
        text = where[0].option_help[option[0]]
        out.append(".TP\n" + option_line(option) + "\n" + roff(text[0].upper() + text[1:]) + ".")
        if len(where) <= 3:
            out.append("(" + ", ".join(roff(command.name) for command in where) + ")")
    out += [
        ".SH EXIT STATUS\n.TP\n0\nAll is fine.\n.TP\n1\nThere are findings, or an input was refused.\n.TP\n2\nThe call is wrong.",
        ".SH ENVIRONMENT\n.TP\n\\fBNO_COLOR\\fR, \\fBTERM\\fR=dumb\nNo colours, unless \\fB\\-\\-color always\\fR is given.",
        ".SH LIMITS\nA lyric of more than 64 MiB, a device and a socket are refused unread; a pipe is read up to that bound. "
        "An audio file that is saved has at most 2 GiB. Of one kind of finding 100 are told in one lyric.",
        ".SH SEE ALSO\nThe format as it is read and written: docs/LRC.md of TQLrcEditor.",
    ]
    return "\n".join(out) + "\n"


# The completions.


def bash(commands):
    out = [
        "# SPDX-License-Identifier: MIT",
        "# bash completion for lrctool. Written by scripts/lrctool_pages.py.",
        "# shellcheck shell=bash",
        "",
        "_lrctool() {",
        "    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} options=",
        "    local names='" + LYRIC_NAMES.replace(" ", "|") + "'",
        "    COMPREPLY=()",
        "    # Of --to=srt each part is a word.",
        "    if [[ $word == = ]]; then word=; elif [[ $before == = ]]; then before=${COMP_WORDS[COMP_CWORD-2]}; fi",
        "    if ((COMP_CWORD == 1)); then",
        f"        mapfile -t COMPREPLY < <(compgen -W '{' '.join(c.name for c in commands)} help --help --version' -- \"$word\")",
        "        return",
        "    fi",
        "    case ${COMP_WORDS[1]} in",
    ]
    for command in commands:
        out.append(f"    {command.name}) options='{' '.join(option[0] for option in command.options)}'"
                   + (f" names='{AUDIO_NAMES.replace(' ', '|')}'" if command.name in AUDIO_COMMANDS else "") + " ;;")
    out += [
        f"    help) mapfile -t COMPREPLY < <(compgen -W '{' '.join(c.name for c in commands)}' -- \"$word\"); return ;;",
        "    *) return ;;",
        "    esac",
        "    case $before in",
    ]
    values = {}
    for command in commands:
        for name, letter, value, choices in command.options:
            if value:
                values[name] = (letter, value, choices)
    for name, (letter, value, choices) in values.items():
        pattern = name + (f" | -{letter}" if letter else "")
        if choices:
            words = f"compgen -W '{choices}' -- \"$word\""
        elif value == "FOLDER":
            words = 'compgen -d -- "$word"'
        elif name == "--audio":
            out.append(f"    {pattern}) names='{AUDIO_NAMES.replace(' ', '|')}' ;;")
            continue
        elif value in ("FILE", "LIST"):
            words = 'compgen -f -- "$word"'
        else:
            words = ""
        out.append(f"    {pattern}) " + (f"mapfile -t COMPREPLY < <({words}); " if words else "") + "return ;;")
    out += [
        "    esac",
        "    if [[ $word == -* ]]; then",
        '        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")',
        "        return",
        "    fi",
        '    [[ ${COMP_WORDS[1]} == embed ]] && names+="|lrc"',
        "    local found",
        "    while IFS= read -r found; do",
        "        if [[ -d $found || ${found,,} =~ \\.($names)$ ]]; then COMPREPLY+=(\"$found\"); fi",
        '    done < <(compgen -f -- "$word")',
        "    compopt -o filenames 2>/dev/null",
        "}",
        "complete -F _lrctool lrctool",
    ]
    return "\n".join(out) + "\n"


def zsh_quoted(text):
    return text.replace("'", "’").replace("[", "(").replace("]", ")").replace(":", "\\:")


def zsh_files(names):
    return f'_files -g "*.(#i)({names.replace(" ", "|")})(-.)"'


def zsh(commands):
    out = ["#compdef lrctool", "# SPDX-License-Identifier: MIT", "# Written by scripts/lrctool_pages.py.", "",
           "_lrctool() {", "    local -a commands=("]
    out += [f"        '{command.name}:{zsh_quoted(command.summary)}'" for command in commands]
    out += ["    )", "    if ((CURRENT == 2)); then", "        _describe command commands", "        return", "    fi",
            "    local command=$words[2]", "    shift words", "    ((CURRENT--))", "    case $command in"]
    for command in commands:
        out.append(f"    {command.name})\n        _arguments -s -S \\")
        for name, letter, value, choices in command.options:
            text = f"[{zsh_quoted(command.option_help[name])}]"
            if value:
                action = f"({choices})" if choices else "_files -/" if value == "FOLDER" else zsh_files(AUDIO_NAMES) if name == "--audio" else "_files" if value in ("FILE", "LIST") else " "
                text += f":{value}:{action}"
            stars = "*" if value == "FROM=TO" else ""
            equals, joined = ("=", "+") if value else ("", "")
            if letter:
                out.append(f"            '{stars}'{{-{letter}{joined},{name}{equals}}}'{text}' \\")
            else:
                out.append(f"            '{stars}{name}{equals}{text}' \\")
        names = AUDIO_NAMES + (" lrc" if command.name == "embed" else "") if command.name in AUDIO_COMMANDS else LYRIC_NAMES
        out.append(f"            '*:file:{zsh_files(names)}'\n        ;;")
    out += ["    help) _describe command commands ;;", "    esac", "}", "", '_lrctool "$@"']
    return "\n".join(out) + "\n"


def fish(commands):
    names = " ".join(command.name for command in commands)
    out = ["# SPDX-License-Identifier: MIT", "# fish completion for lrctool. Written by scripts/lrctool_pages.py.", "",
           f"set -l commands {names}"]
    for command in commands:
        out.append(f"complete -c lrctool -f -n \"not __fish_seen_subcommand_from $commands\" -a {command.name} -d \"{command.summary}\"")
    for command in commands:
        for name, letter, value, choices in command.options:
            line = f"complete -c lrctool -n \"__fish_seen_subcommand_from {command.name}\" -l {name[2:]}"
            if letter:
                line += f" -s {letter}"
            if choices:
                line += f" -x -a \"{choices}\""
            elif value == "FOLDER":
                line += " -x -a \"(__fish_complete_directories)\""
            elif value in ("FILE", "LIST"):
                line += " -r"
            elif value:
                line += " -x"
            text = command.option_help[name].replace('"', "'")
            out.append(f"{line} -d \"{text}\"")
    return "\n".join(out) + "\n"


def main():
    commands = read_commands()
    pages = {
        "docs/lrctool.1": manual(commands),
        "src/cli/completions/lrctool.bash": bash(commands),
        "src/cli/completions/_lrctool": zsh(commands),
        "src/cli/completions/lrctool.fish": fish(commands),
    }
    stale = []
    for name, text in pages.items():
        path = ROOT / name
        if not path.exists() or path.read_text(encoding="utf-8") != text:
            stale.append(name)
            if not CHECKS:
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
    if CHECKS and stale:
        sys.exit("not what lrctool says of itself: " + ", ".join(stale) + "; run scripts/lrctool_pages.py LRCTOOL")


if __name__ == "__main__":
    CHECKS = sys.argv[1:2] == ["--check"]
    TOOL = sys.argv[2 if CHECKS else 1]
    main()
