// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QBasicTimer>
#include <QtWidgets/QTextEdit>

/// An editable text view with a caret that is easy to find: wide, and in the accent colour.
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

protected:
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    [[nodiscard]] bool canShowCaret() const;
    [[nodiscard]] QRect caretRect() const;
    void beginBlinking();
    void showDropCaret(const QRect &place);
    void paintWithoutCaret(QPaintEvent *event);

    double m_caretWidth = 0.0;
    QBasicTimer m_blink;
    bool m_caretIsOn = false;
    // Where the caret was drawn last, and where a drop would go; null for nowhere.
    QRect m_drawnCaret;
    QRect m_dropCaret;
};
