// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QTextEdit>

/// An editable text view with a caret that is easy to find.
class TQLRCTextView : public QTextEdit
{
    Q_OBJECT
    Q_PROPERTY(double caretWidth READ caretWidth WRITE setCaretWidth)

public:
    explicit TQLRCTextView(QWidget *parent = nullptr);

    /// Width of the caret in logical pixels, as it was set. Drawn and redrawn at the nearest
    /// whole one; below 0 and what is not a number draws none.
    [[nodiscard]] double caretWidth() const { return m_caretWidth; }
    void setCaretWidth(double width);

private:
    double m_caretWidth = 0.0;
};
