// SPDX-License-Identifier: MIT
#pragma once

#include "views/LyricLayout.h"

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QAbstractScrollArea>

#include <memory>

/// A lyric to look at: not editable, not selectable by the user, never with the keyboard focus,
/// without a context menu.
///
/// Its selection is the program's: it is drawn in the green of the current line, without a
/// background. Every text it is given has the same alignment, centred at first, and lines 1.2 times
/// as high as the font's. The first line stands at the top of the middle third of the view, and the
/// last can be scrolled up to its bottom, so that every line can stand in the middle third.
///
/// Only what can be seen is laid out: a text of a hundred thousand lines is shown at once.
class RBMenuDisabledTextView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit RBMenuDisabledTextView(QWidget *parent = nullptr);

    /// Shows `text`, its lines separated by line feeds, from its beginning; nothing is selected.
    void setPlainText(const QString &text);
    /// The same for a text whose lines are made as they come into sight. Not null.
    void setText(std::shared_ptr<const views::LyricText> text);
    /// Shows `text` in the place of the one so far, which is its beginning: nothing is seen to move.
    void continueWith(std::shared_ptr<const views::LyricText> text);
    [[nodiscard]] QString toPlainText() const { return m_layout.text().whole(); }

    /// Aligns the whole text, and the texts that come. Left and right are those of the screen, for
    /// text of every direction.
    void setTextAlignment(Qt::Alignment alignment);
    [[nodiscard]] Qt::Alignment textAlignment() const { return m_alignment; }

    /// Empty, at 0, for a new text.
    [[nodiscard]] views::TextRange selectedRange() const { return m_selected; }
    /// Selects what of `range` lies within the text; redraws the lines that change, and scrolls nowhere.
    void setSelectedRange(views::TextRange range);
    [[nodiscard]] QString selectedText() const;
    /// Brings the line in which the selection begins into the middle of the view: gliding when it is
    /// near and the desktop animates, at once otherwise. The user's wheel ends it.
    void scrollSelectionIntoView();
    /// Where the line in which the selection begins stands in the viewport, or will stand when a scroll
    /// that is under way has ended.
    [[nodiscard]] QRect selectedLineRect() const;
    /// How many lines are laid out now: those that can be seen, and some that were.
    [[nodiscard]] std::size_t laidOutLines() const { return m_layout.laidOutLines(); }
    [[nodiscard]] bool isGliding() const { return m_glide.state() == QAbstractAnimation::Running; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void applySelectionColor();
    void showNewText();
    void relayOut();
    void layOutVisible();
    void updateScrollRange();
    void scrollTo(int value);
    void glideOn(double share);
    void updateLines(views::TextRange range);
    void paintEdges(QPainter &painter) const;
    [[nodiscard]] int padding() const;
    [[nodiscard]] int lineInMiddle() const;
    [[nodiscard]] int valueForSelection() const;
    [[nodiscard]] bool isMotionWanted() const;

    views::LyricLayout m_layout;
    views::TextRange m_selected;
    Qt::Alignment m_alignment = Qt::AlignHCenter;
    QVariantAnimation m_glide;
    // Of the viewport, as the text was scrolled for.
    int m_height = 0;
    // The scroll value that the glide began at.
    int m_glideStart = 0;
    bool m_isLayingOut = false;
};
