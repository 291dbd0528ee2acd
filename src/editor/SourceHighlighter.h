// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QSyntaxHighlighter>
#include <QtGui/QTextCharFormat>

namespace kit {
struct Theme;
} // namespace kit

namespace editor {

/// Colours the tags of an LRC text quietly: times and word stamps in the accent, ID tags second to the text.
class SourceHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    explicit SourceHighlighter(QTextDocument *document);

    /// Colours from now on, and what stands there already. Times get figures of equal width from the
    /// desktop's fixed font where those of `font` differ.
    void setLook(const kit::Theme &theme, const QFont &font);

protected:
    void highlightBlock(const QString &text) override;

private:
    QTextCharFormat m_time;
    QTextCharFormat m_idTag;
};

} // namespace editor
