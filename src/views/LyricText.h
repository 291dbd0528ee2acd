// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <cstddef>
#include <vector>

namespace views {

/// A text of many lines, each of which is made when it comes into sight. Places are in UTF-16 units, from 0.
class LyricText
{
public:
    LyricText() = default;
    LyricText(const LyricText &) = delete;
    LyricText &operator=(const LyricText &) = delete;
    virtual ~LyricText() = default;

    /// Where each line begins, and one behind the end, as if a line feed stood there too: at least two, and
    /// the same as long as the text lives.
    [[nodiscard]] virtual const std::vector<std::size_t> &lineStarts() const = 0;
    /// \param index  of a line, from 0.
    [[nodiscard]] virtual QString line(int index) const = 0;
    /// All lines, a line feed between them.
    [[nodiscard]] virtual QString whole() const = 0;
};

/// A text that is there already.
class PlainLyricText final : public LyricText
{
public:
    /// \param text  its lines separated by line feeds. Cost: one search for them.
    explicit PlainLyricText(const QString &text);

    [[nodiscard]] const std::vector<std::size_t> &lineStarts() const override { return m_starts; }
    [[nodiscard]] QString line(int index) const override;
    [[nodiscard]] QString whole() const override { return m_text; }

private:
    QString m_text;
    std::vector<std::size_t> m_starts;
};

} // namespace views
