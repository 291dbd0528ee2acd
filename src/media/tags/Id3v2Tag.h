// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/LyricFields.h"
#include "media/tags/Outcome.h"
#include "media/tags/SharedBytes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

class ByteSource;

/// One frame of an ID3v2 tag, kept as it stands in the file.
struct Id3v2Frame
{
    std::string id; ///< four characters, three in version 2.2
    unsigned format = 0; ///< the second byte of its flags
    SharedBytes raw; ///< header and body; of a tag unsynchronised as a whole, undone
    std::size_t bodyAt = 0; ///< where in `raw` the body begins

    [[nodiscard]] std::string_view body() const { return raw.view().substr(bodyAt); }
};

/// An ID3v2 tag (2.2, 2.3, 2.4) at the start of a source, to be edited frame by frame.
///
/// What is not edited is written back byte for byte, in the tag's own version; only an extended
/// header and a footer are left out of what is written, and unsynchronisation of a whole tag is
/// undone. Source: "ID3 tag version 2.4.0 - Main Structure" and its two predecessors.
struct Id3v2Tag
{
    unsigned version = 4;
    unsigned revision = 0;
    unsigned flags = 0;
    std::uint64_t bytes = 0; ///< of the whole tag in the file; 0 when there is none
    std::vector<Id3v2Frame> frames;
    std::string tail; ///< what follows the last frame; empty when it is only padding

    /// The tag at the start of `source`; one of 0 bytes when there is none. Refused above 32 MiB, or 200,000
    /// frames.
    [[nodiscard]] static Outcome<Id3v2Tag> parse(const ByteSource &source);

    /// The bytes of the tag, as long as it was where they fit; none when there is no frame.
    [[nodiscard]] Outcome<std::string> render() const;
};

/// The size of the tag that begins at `offset`, header and footer included; 0 when none does.
[[nodiscard]] std::uint64_t id3v2Size(const ByteSource &source, std::uint64_t offset);

/// Bytes of the leading tags that stand one behind the other.
[[nodiscard]] std::uint64_t leadingId3v2Size(const ByteSource &source);

/// Whether the frame's body is deflated.
[[nodiscard]] bool isCompressed(const Id3v2Tag &tag, const Id3v2Frame &frame);
/// The body without what the frame's flags put around it, inflated where it was deflated. Null when it is
/// encrypted, or inflates to something else than it says, or to more than 16 MiB.
[[nodiscard]] std::optional<std::string> plainBody(const Id3v2Tag &tag, const Id3v2Frame &frame);
/// A frame with this body and no flags.
[[nodiscard]] Id3v2Frame makeFrame(unsigned version, const std::string &id, const std::string &body);

} // namespace tags
