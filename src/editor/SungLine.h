// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

class RBEditSong;

namespace editor {

/// Which line of a document is sung at a time: the one whose time came last, of equal ones the lower.
///
/// Looked up by halves in a list that is made at the first question after a change: the many questions while
/// the song plays cost nothing, and a stamp does not wait for it.
class SungLine
{
public:
    /// `song` must outlive this.
    explicit SungLine(const RBEditSong &song) : m_song(song) { }

    /// The lines have changed.
    void invalidate() { m_isValid = false; }
    /// The row sung at `millis` from the start; −1 before the first time and without any.
    [[nodiscard]] int rowAt(std::int64_t millis);

private:
    struct Onset
    {
        std::int64_t millis;
        int row;

        friend auto operator<=>(const Onset &, const Onset &) = default;
    };

    void build();

    const RBEditSong &m_song;
    std::vector<Onset> m_onsets;
    bool m_isValid = false;
};

} // namespace editor
