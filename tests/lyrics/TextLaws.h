// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/PlainReader.h"
#include "lyrics/RBPreviewSong.h"
#include "lyrics/SongSupport.h"

#include <string>
#include <string_view>
#include <vector>

/// What holds for every text, whatever its bytes: for the property tests and the fuzzers alike.
namespace laws {

/// What the model reads, told as the plain reader tells it.
inline std::vector<plainreader::Line> read(const RBEditSong &song)
{
    std::vector<plainreader::Line> lines;
    for (const RBSongLine &line : song.aryLines()) {
        const songs::PlainLine plain = songs::plain(line);
        lines.push_back({plain.times, plain.text, plain.key, line.isOtherTag()});
    }
    return lines;
}

/// The law that `text` breaks; empty when it keeps them all.
inline std::string brokenBy(std::string_view text)
{
    RBEditSong song = songs::built(text);
    if (song.songText() != text)
        return "a document has the text that it was built from";
    if (read(song) != plainreader::read(text))
        return "two readers read the same lines";
    if (songs::written(song) != text)
        return "a document that nobody edited is written as it was read";
    songs::touchAll(song);
    if (songs::written(song) != text)
        return "a document that was opened for writing and not changed is written as it was read";
    if (!(songs::built(song.songText()) == song))
        return "what was written is read as what it was";
    if (song.physicalLineStarts().empty() != song.aryLines().empty())
        return "lines have physical lines, no lines have none";
    RBPreviewSong preview;
    preview.buildWithLrcText(text);
    const std::u16string shown = preview.previewSongTextWithHasTag(true);
    for (const RBPreviewLine &line : preview.aryLines()) {
        if (line.txtRg.location + line.txtRg.length > shown.size())
            return "a line of the preview stands in its text";
    }
    return {};
}

} // namespace laws
