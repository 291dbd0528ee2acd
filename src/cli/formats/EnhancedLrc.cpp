// SPDX-License-Identifier: MIT
#include "cli/formats/EnhancedLrc.h"

#include "lyrics/RBEditSong.h"
#include "lyrics/WordStamps.h"

#include <algorithm>

namespace cli {
namespace {

/// The text with each bracket of a stamp as an angle. What is spelled inside stays.
std::string angled(const RBSongLine &line)
{
    std::string text(line.lineText());
    for (const lyrics::WordStamp &stamp : lyrics::wordStamps(line)) {
        text[stamp.begin] = '<';
        text[stamp.end - 1] = '>';
    }
    return text;
}

bool hasBracketStamp(const RBSongLine &line)
{
    return std::ranges::any_of(
        lyrics::wordStamps(line), [](const lyrics::WordStamp &stamp) { return !stamp.isAngle; });
}

} // namespace

std::string withoutStamps(std::string_view lrc, Losses &losses)
{
    RBEditSong song;
    song.buildWithLrcText(lrc);
    const std::vector<std::size_t> starts = song.physicalLineStarts();
    for (std::size_t row = 0; row < song.aryLines().size(); ++row) {
        RBSongLine &line = song.aryLines()[row];
        if (line.isProperty() || line.isOtherTag() || !lyrics::hasWordStamps(line))
            continue;
        const auto after = std::upper_bound(starts.begin(), starts.end(), row);
        losses.add(static_cast<std::size_t>(after - starts.begin()),
            "the times of its words are left out; lrc (other than enhanced) has no place for them.");
        line.updateWithText(lyrics::wordsOf(line));
    }
    song.updateSongText();
    return std::string(song.songText());
}

std::string withAngleStamps(std::string_view lrc)
{
    RBEditSong song;
    song.buildWithLrcText(lrc);
    for (RBSongLine &line : song.aryLines()) {
        if (hasBracketStamp(line))
            line.updateWithText(angled(line));
    }
    song.updateSongText();
    return std::string(song.songText());
}

} // namespace cli
