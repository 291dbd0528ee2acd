// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Outcome.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

class ByteSource;

/// An atom ("box") of an MP4 file. Source: ISO/IEC 14496-12, section 4.2.
struct Mp4Atom
{
    std::string name; ///< four bytes
    std::uint64_t offset = 0;
    std::uint64_t size = 0; ///< header included
    unsigned header = 8; ///< bytes before the body or, in a container, before the first child
    bool longSize = false; ///< the size stands in 64 bits behind the name
    bool toTheEnd = false; ///< the size is left open: it ends with the file
    std::vector<Mp4Atom> children; ///< of the containers that lead to tags and chunk tables only

    [[nodiscard]] std::uint64_t bodyAt() const { return offset + header; }
    [[nodiscard]] std::uint64_t end() const { return offset + size; }
    [[nodiscard]] const Mp4Atom *child(std::string_view childName) const;
    [[nodiscard]] std::string body(const ByteSource &source) const;
};

/// All atoms of `source` under one that stands for the file.
///
/// Refused: deeper than 32 levels or more than 150,000 of them (both would exhaust whoever
/// walks them), an atom that does not fit into the one around it.
[[nodiscard]] Outcome<Mp4Atom> parseMp4Atoms(const ByteSource &source);

/// An atom with a 32-bit size.
[[nodiscard]] std::string renderAtom(const std::string &name, const std::string &body);

} // namespace tags
