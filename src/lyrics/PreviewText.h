// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/RBEditSong.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// A range of characters in UTF-16 units, from 0.
struct RBTextRange
{
    std::size_t location = 0;
    std::size_t length = 0;

    friend bool operator==(const RBTextRange &, const RBTextRange &) = default;
};

namespace lyrics {

/// The text of a preview, of which each line is made when somebody wants to see it.
///
/// Lengths and places are in UTF-16 units, from 0. It stays as it is, whatever becomes of the preview.
class PreviewText
{
public:
    /// No line is longer: text views do not survive a line of a million.
    static constexpr std::size_t kLongestLine = 4096;

    /// The empty text.
    PreviewText() = default;
    explicit PreviewText(std::shared_ptr<const RBEditSong> song) : m_song(std::move(song)) { }

    void reserve(std::size_t lines);
    /// Adds the line at `songLine` of the song. Returns where it stands.
    RBTextRange addLine(std::uint32_t songLine);

    /// Where each line begins, and one behind the end, as if a line feed stood there too. The empty text is
    /// one empty line.
    [[nodiscard]] const std::vector<std::size_t> &lineStarts() const { return m_starts; }
    /// The line at `index`, in the form in which a text view can show it (see appendDisplayText); the empty
    /// text for one that there is not.
    [[nodiscard]] std::u16string line(std::size_t index) const;
    /// All lines, a line feed between them.
    [[nodiscard]] std::u16string whole() const;

private:
    std::shared_ptr<const RBEditSong> m_song;
    std::vector<std::uint32_t> m_songLines;
    std::vector<std::size_t> m_starts{0, 1};
};

} // namespace lyrics
