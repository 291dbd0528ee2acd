// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/ByteSource.h"
#include "media/tags/Patch.h"

#include <vector>

namespace tags {

/// A file as it would be after an edit, without a copy of it: what is unchanged is read from the old one.
class PatchedSource final : public ByteSource
{
public:
    /// `old` must outlive it; `edit` rises by offset, does not overlap and stays within `old`.
    PatchedSource(const ByteSource &old, Edit edit);

    [[nodiscard]] std::uint64_t size() const override { return m_size; }
    [[nodiscard]] std::string read(std::uint64_t offset, std::size_t count) const override;
    [[nodiscard]] bool hasFailed() const override { return m_old.hasFailed(); }

private:
    /// A stretch of the new file: of the old one, or what a patch inserts.
    struct Piece
    {
        std::uint64_t at = 0; ///< in the new file
        std::uint64_t size = 0;
        const std::string *inserted = nullptr; ///< null: a stretch of the old file
        std::uint64_t oldAt = 0;
    };

    void add(std::uint64_t size, const std::string *inserted, std::uint64_t oldAt);

    const ByteSource &m_old;
    Edit m_edit;
    std::vector<Piece> m_pieces;
    std::uint64_t m_size = 0;
};

} // namespace tags
