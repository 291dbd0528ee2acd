// SPDX-License-Identifier: MIT
//
// The LRC text in the table's place: the same document, the same history, the same selected line.
#include "editor/EditorActions.h"
#include "editor/EditorStep.h"
#include "editor/PhysicalLines.h"
#include "editor/ProblemTexts.h"
#include "editor/SourceView.h"
#include "editor/TQLRCEditorViewCtl.h"
#include "resources/Localized.h"

#include <QtCore/QScopedValueRollback>
#include <QtCore/QStringList>
#include <QtWidgets/QLayout>

#include <algorithm>

bool TQLRCEditorViewCtl::isSourceShown() const
{
    return m_sourceView && !m_sourceView->isHidden();
}

void TQLRCEditorViewCtl::showSource(QObject *sender)
{
    Q_UNUSED(sender)
    const auto alive = self();
    if (!viewIfLoaded()) {
        return;
    }
    commitEditing();
    m_tableView->commitEditing();
    const bool show = !isSourceShown();
    if (show && !m_sourceView) {
        buildSourceView();
    }
    m_sourceView->setVisible(show);
    m_tableView->setVisible(!show);
    if (show) {
        updateSource();
        moveCaretToSelectedRow();
    } else {
        m_tableView->scrollRowToVisible(m_tableView->selectedRow());
    }
    QWidget *shown = show ? static_cast<QWidget *>(m_sourceView) : m_tableView;
    shown->setFocus();
    action(EditorCommand::ShowSource)->setChecked(show);
    refreshToolTips();
}

void TQLRCEditorViewCtl::buildSourceView()
{
    m_sourceView = new SourceView(view());
    m_sourceView->hide();
    view()->findChild<QLayout *>(QStringLiteral("layoutEditor"))->addWidget(m_sourceView);
    QWidget::setTabOrder(m_tableView, m_sourceView);
    // The view may outlive us by a turn of the event loop.
    const std::weak_ptr<TQLRCEditorViewCtl> weak = self();
    m_sourceView->setProblemFinder([weak](int line) {
        const auto editor = weak.lock();
        return editor ? editor->problemsOfLine(line) : QString();
    });
    for (const EditorCommand command :
        {EditorCommand::Undo, EditorCommand::Redo, EditorCommand::ShowSource}) {
        m_sourceView->addAction(action(command));
    }
    connect(m_sourceView, &SourceView::sourceEdited, this, &TQLRCEditorViewCtl::takeSource);
    connect(m_sourceView, &SourceView::caretLineChanged, this, [this] { m_history.closeTyping(); });
    // The host hears of it, and may close everything: not while the text is still at work on the key.
    connect(
        m_sourceView, &SourceView::caretLineChanged, this, [this] { selectRowOfCaret(); },
        Qt::QueuedConnection);
}

void TQLRCEditorViewCtl::updateSource()
{
    m_physicalLines.reset();
    if (isSourceShown()) {
        const QScopedValueRollback showing(m_isShowingSource, true);
        m_sourceView->setSourceText(songText());
        m_sourceView->refreshProblems();
    }
}

void TQLRCEditorViewCtl::flushSource()
{
    if (isSourceShown()) {
        m_sourceView->flushEdits();
        selectRowOfCaret();
    }
}

void TQLRCEditorViewCtl::takeSource()
{
    const auto alive = self();
    const QByteArray text = m_sourceView->sourceText();
    if (text == songText()) {
        return;
    }
    const Step step(*this, localized(QStringLiteral("typing")), Step::Kind::Typing);
    RBEditSong song;
    song.buildWithLrcText({text.constData(), static_cast<std::size_t>(text.size())});
    changes().replace(std::move(song));
    {
        // The caret stays where it types, whatever row a reload selects.
        const QScopedValueRollback showing(m_isShowingSource, true);
        reloadDataWithLrcChanged();
    }
    selectRowOfCaret();
}

const editor::PhysicalLines &TQLRCEditorViewCtl::physicalLines()
{
    if (!m_physicalLines) {
        m_physicalLines.emplace(m_song);
    }
    return *m_physicalLines;
}

void TQLRCEditorViewCtl::selectRowOfCaret()
{
    const auto alive = self();
    if (m_isShowingSource || !isSourceShown()) {
        return;
    }
    const QScopedValueRollback showing(m_isShowingSource, true);
    const int line = m_sourceView->caretLine();
    // A row of the line that is selected already stays: several tags may stand on one line.
    if (line != physicalLines().lineOfRow(m_tableView->selectedRow())) {
        m_tableView->selectSingleRow(std::min(physicalLines().rowOfLine(line), songLinesNum() - 1));
    }
}

void TQLRCEditorViewCtl::moveCaretToSelectedRow()
{
    if (m_isShowingSource || !isSourceShown()) {
        return;
    }
    const QScopedValueRollback showing(m_isShowingSource, true);
    if (const int row = m_tableView->selectedRow(); row >= 0) {
        m_sourceView->moveCaretToLine(physicalLines().lineOfRow(row));
    }
}

QString TQLRCEditorViewCtl::problemsOfLine(int line)
{
    QStringList texts;
    for (int row = physicalLines().rowOfLine(line); row < physicalLines().rowOfLine(line + 1); ++row) {
        for (const editor::LineProblem &problem : problemsOfRow(row)) {
            texts.append(editor::problemText(problem));
        }
    }
    return texts.join(QLatin1Char('\n'));
}
