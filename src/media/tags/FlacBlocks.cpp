// SPDX-License-Identifier: MIT
#include "media/tags/FlacBlocks.h"

#include "media/tags/ByteSource.h"
#include "media/tags/Id3v2Tag.h"

namespace tags {

namespace {

constexpr std::size_t kMaxBlocks = 100000;

} // namespace

Outcome<FlacBlocks> FlacBlocks::parse(const ByteSource &source)
{
    const Failure damaged = {Reason::Damaged,
        "The blocks at the start of the FLAC file do not fit together: the file is damaged or incomplete."};
    FlacBlocks out;
    out.start = leadingId3v2Size(source);
    std::uint64_t at = out.start + 4;
    for (bool last = false; !last;) {
        const std::string header = source.read(at, FlacBlock::kHeaderBytes);
        if (header.size() < FlacBlock::kHeaderBytes || out.blocks.size() == kMaxBlocks)
            return damaged;
        const auto first = unsigned(bigEndian(header, 0, 1));
        const FlacBlock block = {at, first & ~FlacBlock::kLast, bigEndian(header, 1, 3)};
        if (block.end() > source.size())
            return damaged;
        out.blocks.push_back(block);
        at = block.end();
        last = first & FlacBlock::kLast;
    }
    return out;
}

} // namespace tags
