// SPDX-License-Identifier: MIT
#include "cli/Options.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace cli {
namespace {

constexpr std::array kOptions{
    OptionInfo{Option::Help, "--help", 'h', "", "", "show this help"},
    OptionInfo{Option::Version, "--version", '\0', "", "", "show the version"},
    OptionInfo{Option::Json, "--json", 'j', "", "", "answer in JSON; with several files one object a line"},
    OptionInfo{Option::InPlace, "--in-place", 'i', "", "",
        "write the result over the file, whole or not at all; a file that stays the same is left alone"},
    OptionInfo{Option::DryRun, "--dry-run", 'n', "", "", "write nothing, show what would change"},
    OptionInfo{Option::Output, "--output", 'o', "FILE", "", "write the result to FILE"},
    OptionInfo{Option::Into, "--into", '\0', "FOLDER", "",
        "write each result into FOLDER, under its own name with the ending of the target"},
    OptionInfo{Option::Force, "--force", '\0', "", "",
        "write over files that are there; embed: take the lyric out when the new one is empty"},
    OptionInfo{Option::From, "--from", 'f', "FORMAT", "lrc enhanced srt vtt ass text ttml",
        "read this format; without it, the ending of the name or the content tells"},
    OptionInfo{Option::To, "--to", 't', "FORMAT", "lrc enhanced srt vtt ass text ttml", "write this format"},
    OptionInfo{Option::Sense, "--positive", '\0', "SENSE", "earlier later",
        "what a positive offset does to the lines: earlier or later; players differ"},
    OptionInfo{Option::Anchor, "--anchor", 'a', "FROM=TO", "",
        "the time FROM becomes TO; give two or more for a stretch, as 0:12.00=0:12.50"},
    OptionInfo{Option::Audio, "--audio", '\0', "FILE", "", "compare with the length of this audio file"},
    OptionInfo{Option::BesideAudio, "--beside-audio", '\0', "", "",
        "compare each lyric with the length of the audio file of the same name beside it"},
    OptionInfo{Option::Encoding, "--encoding", 'e', "NAME", "",
        "read the lyric in this encoding (utf-16, gb18030, big5, shift_jis, windows-1252, …)"},
    OptionInfo{Option::GuessEncoding, "--guess-encoding", 'g', "", "",
        "guess the encoding of a lyric that is no UTF-8, and say the guess; an unsure one is not written "
        "over a "
        "file"},
    OptionInfo{Option::FilesFrom, "--files-from", '\0', "LIST", "",
        "read the names of the files from LIST, one a line; - is standard input"},
    OptionInfo{Option::Null, "--null", '0', "", "", "the names in LIST end with NUL, as find -print0 writes"},
    OptionInfo{Option::Jobs, "--jobs", '\0', "N", "", "work on N files at a time; without it, on all cores"},
    OptionInfo{Option::Quiet, "--quiet", 'q', "", "",
        "no remarks and no progress on standard error; complaints stay"},
    OptionInfo{Option::Field, "--field", '\0', "FIELD", "",
        "this lyric field: its name or number, as 'fields' shows them, or USLT:deu; embed: may stand several "
        "times, and all means every field that is there"},
    OptionInfo{Option::Clear, "--clear", '\0', "FIELD", "", "take this field out; may stand several times"},
    OptionInfo{Option::Equal, "--equal", '\0', "", "",
        "bring the fields that are stale to what the lyric says: the whole lyric, or its words alone"},
    OptionInfo{Option::Beside, "--beside", '\0', "", "",
        "the lyric of each song stands in the .lrc file of the same name beside it"},
    OptionInfo{Option::Color, "--color", '\0', "WHEN", "auto always never",
        "colours: auto (on a terminal), always, never"},
};

} // namespace

std::span<const OptionInfo> allOptions()
{
    return kOptions;
}

const OptionInfo &infoOf(Option option)
{
    const auto *found = std::ranges::find(kOptions, option, &OptionInfo::option);
    assert(found != kOptions.end() && "every option is in the table");
    return *found;
}

} // namespace cli
