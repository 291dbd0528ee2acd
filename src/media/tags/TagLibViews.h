// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/MpegFrame.h"

#include <taglib/apetag.h>
#include <taglib/asftag.h>
#include <taglib/flacpicture.h>
#include <taglib/id3v2tag.h>
#include <taglib/infotag.h>
#include <taglib/mp4tag.h>
#include <taglib/tlist.h>
#include <taglib/xiphcomment.h>

#include <optional>

namespace tags {

struct LibraryView;

/// Adds what one kind of tag holds to `out`: lyrics, cover, everything else.
/// `frameLength`: as for Id3v2Fields.
void addView(const TagLib::ID3v2::Tag &tag, LibraryView &out,
    const std::optional<FrameLength> &frameLength = std::nullopt);
void addView(const TagLib::Ogg::XiphComment &comment, LibraryView &out);
void addView(const TagLib::MP4::Tag &tag, LibraryView &out);
void addView(const TagLib::RIFF::Info::Tag &tag, LibraryView &out);
void addView(const TagLib::APE::Tag &tag, LibraryView &out);
void addView(const TagLib::ASF::Tag &tag, LibraryView &out);
void addPictures(const TagLib::List<TagLib::FLAC::Picture *> &pictures, LibraryView &out);

} // namespace tags
