// SPDX-License-Identifier: MIT
#include "media/tags/PatchedSource.h"

#include <algorithm>
#include <utility>

namespace tags {

PatchedSource::PatchedSource(const ByteSource &old, Edit edit) : m_old(old), m_edit(std::move(edit))
{
    std::uint64_t at = 0;
    for (const Patch &patch : m_edit) {
        add(patch.offset - at, nullptr, at);
        add(patch.inserted.size(), &patch.inserted, 0);
        at = patch.offset + patch.removed;
    }
    add(old.size() - at, nullptr, at);
}

void PatchedSource::add(std::uint64_t size, const std::string *inserted, std::uint64_t oldAt)
{
    if (size == 0)
        return;
    m_pieces.push_back({m_size, size, inserted, oldAt});
    m_size += size;
}

std::string PatchedSource::read(std::uint64_t offset, std::size_t count) const
{
    std::string out;
    auto piece = std::upper_bound(m_pieces.begin(), m_pieces.end(), offset,
        [](std::uint64_t value, const Piece &other) { return value < other.at; });
    if (piece == m_pieces.begin())
        return out;
    for (--piece; piece != m_pieces.end() && out.size() < count; ++piece) {
        const std::uint64_t skipped = offset + out.size() - piece->at;
        if (skipped >= piece->size) // behind the last one, or the old file is shorter than it was
            break;
        const auto some = std::size_t(std::min<std::uint64_t>(count - out.size(), piece->size - skipped));
        if (piece->inserted)
            out.append(*piece->inserted, std::size_t(skipped), some);
        else
            out += m_old.read(piece->oldAt + skipped, some);
    }
    return out;
}

} // namespace tags
