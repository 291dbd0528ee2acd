// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/AudioTags.h"
#include "media/tags/Outcome.h"

#include <string>
#include <string_view>
#include <vector>

namespace tags {

class ByteSource;

/// A file's tags as TagLib understands them.
///
/// It is where title, cover and duration come from; and, since it shares no code with the
/// containers that edit a file, it is the second reader that an edited file has to satisfy.
struct LibraryView
{
    std::string title;
    std::string artist;
    std::string album;
    std::string cover;
    double duration = 0; ///< seconds
    std::vector<std::string> lyrics; ///< the texts of all lyric fields, sorted
    std::vector<std::string> others; ///< everything else, each with its name, sorted
};

/// Reads `source` as a file of `format`; `name` is the file's name, as TagLib would know it.
///
/// What is known to exhaust the library is refused before it sees the file, and it is given no
/// more than a bounded number of bytes.
[[nodiscard]] Outcome<LibraryView> readWithTagLib(
    const ByteSource &source, Format format, const std::string &name);

/// `text` as it comes out of the library when it stood in a tag as UTF-8.
[[nodiscard]] std::string textAsTagLibReads(std::string_view text);

} // namespace tags
