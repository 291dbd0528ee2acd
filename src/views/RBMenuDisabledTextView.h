// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QTextEdit>

/// A lyric to look at: not editable, not selectable by the user, never with the keyboard focus,
/// without a context menu.
///
/// Its selection is the program's: the text cursor's selection is drawn in the green of the
/// current line, without a background. Every text it is given has the same alignment, centred
/// at first, and lines 1.2 times as high as the font's.
class RBMenuDisabledTextView : public QTextEdit
{
    Q_OBJECT

public:
    explicit RBMenuDisabledTextView(QWidget *parent = nullptr);

    /// Aligns the whole text, and the texts that come.
    void setTextAlignment(Qt::Alignment alignment);
    [[nodiscard]] Qt::Alignment textAlignment() const { return m_alignment; }

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void formatChange(int position, int added);
    void applySelectionColor();

    Qt::Alignment m_alignment = Qt::AlignHCenter;
    bool m_changing = false;
};
