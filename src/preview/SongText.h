// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/PreviewText.h"
#include "views/LyricText.h"

#include <memory>
#include <string>
#include <utility>

namespace preview {

/// The text of a preview as the view wants it.
class SongText final : public views::LyricText
{
public:
    /// `text` is not null.
    explicit SongText(std::shared_ptr<const lyrics::PreviewText> text) : m_text(std::move(text)) { }

    [[nodiscard]] const std::vector<std::size_t> &lineStarts() const override { return m_text->lineStarts(); }
    [[nodiscard]] QString line(int index) const override
    {
        return QString::fromStdU16String(m_text->line(static_cast<std::size_t>(index)));
    }
    [[nodiscard]] QString whole() const override { return QString::fromStdU16String(m_text->whole()); }

private:
    std::shared_ptr<const lyrics::PreviewText> m_text;
};

} // namespace preview
