// SPDX-License-Identifier: MIT
#pragma once

#include "kit/CellTextEditor.h"
#include "views/TQLRCTextView.h"

#include <QtCore/QHash>

namespace views {

/// The text view that edits the text of a table's cell: one line, without wrapping, scroll bars or
/// frame, which moves sideways to the caret. A text begins at its own side, right to left too.
class CellTextView final : public TQLRCTextView, public kit::CellTextEditor
{
    Q_OBJECT

public:
    explicit CellTextView(QWidget *parent = nullptr);

    [[nodiscard]] QWidget *widget() override { return this; }
    void setCellText(const QString &text) override;
    [[nodiscard]] QString cellText() const override;
    [[nodiscard]] QString textBeforeSelection() const override;
    [[nodiscard]] QString textAfterSelection() const override;
    void selectWholeText() override;
    void selectNothing() override;
    void moveCaretTo(qsizetype position) override;
    void setTextPlace(int left, int right, int rowHeight) override;
    void setLinesHandler(LinesHandler handler) override { m_linesHandler = std::move(handler); }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;
    [[nodiscard]] QMimeData *createMimeDataFromSelection() const override;

private:
    void configure();
    void followEdit();
    void insertLines(const QString &pasted);
    void placeText();
    void fitWidth();
    void showMarginAtTheEnds();

    LinesHandler m_linesHandler;
    // Only while the text holds characters that a document of one line cannot: the text as it is
    // meant and as it is shown, unit by unit, and what earlier texts were meant as, for undo.
    QString m_meantText;
    QString m_shownText;
    QHash<QString, QString> m_meantBefore;
    int m_left = 0;
    int m_right = 0;
    int m_rowHeight = 0;
    bool m_isDropping = false;
    bool m_isFitting = false;
};

} // namespace views
