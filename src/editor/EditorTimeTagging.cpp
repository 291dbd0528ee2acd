// SPDX-License-Identifier: MIT
//
// Stamping the play position onto lines, and moving the selection while doing so.
#include "editor/LineCommands.h"
#include "editor/TQLRCEditorViewCtl.h"
#include "lyrics/Millis.h"
#include "lyrics/RBUtils.h"
#include "views/RBNoResponseTextFiled.h"

#include <algorithm>

namespace {

// So many rows below the one that was left are kept in view, for the singer's next words.
constexpr int kLookAheadRows = 6;

} // namespace

void TQLRCEditorViewCtl::insertTimeTag(QObject *sender)
{
    Q_UNUSED(sender)
    const auto alive = self();
    if (const auto parent = parentVC()) {
        parent->tryToPlay();
    }
    tryInsertWithEmpty();
    if (RBSongLine *line = getSelectedLine()) {
        const QString position = m_lblTabTime ? m_lblTabTime->text() : QString();
        editor::stamp(*line, RBUtils::getTimeInterval(position.toStdString()));
        showThatItStamped();
    }
    reloadDataWithLrcChanged();
    selectNextLine(false);
}

void TQLRCEditorViewCtl::tryInsertWithEmpty()
{
    if (m_song.aryLines().empty()) {
        m_song.insertLine_atIndex(RBSongLine::emptyLine(), 0);
        reloadDataWithLrcChanged();
    }
}

void TQLRCEditorViewCtl::selectNextLine(bool edit)
{
    Q_UNUSED(edit)
    const auto alive = self();
    const auto selected = m_tableView ? m_tableView->selectedRowRanges() : kit::RowRanges();
    if (selected.empty()) {
        return;
    }
    const int last = selected.back().last;
    const int next = last + 1;
    if (const int rows = m_tableView->numberOfRows(); next >= rows) {
        m_song.insertLine_atIndex(RBSongLine::emptyLine(), static_cast<std::size_t>(rows));
        reloadDataWithLrcChanged();
    }
    if (m_tableView) {
        m_tableView->selectSingleRow(next);
    }
    if (m_tableView) {
        m_tableView->scrollRowToVisible(std::min(last + kLookAheadRows, m_tableView->numberOfRows() - 1));
    }
}

void TQLRCEditorViewCtl::selectPrevLine(bool edit)
{
    const auto alive = self();
    const auto selected = m_tableView ? m_tableView->selectedRowRanges() : kit::RowRanges();
    if (selected.empty()) {
        return;
    }
    const int first = selected.front().first;
    if (first <= 0 || first > m_tableView->numberOfRows()) {
        return;
    }
    const int previous = first - 1;
    m_tableView->selectSingleRow(previous);
    if (!m_tableView) {
        return;
    }
    m_tableView->scrollRowToVisible(previous);
    if (edit) {
        editSoon(m_tableView->numberOfColumns() - 1, previous);
    }
}

void TQLRCEditorViewCtl::updatePlayerProgress(double seconds)
{
    if (!m_lblTabTime) {
        return;
    }
    const QString text = QLatin1Char('[') + getTimeStr(seconds) + QLatin1Char(']');
    // A hundred ticks a second, and most of them within the same hundredth: painted once.
    if (m_lblTabTime->text() != text) {
        m_lblTabTime->setText(text);
    }
}

QString TQLRCEditorViewCtl::getTimeStr(double seconds) const
{
    return QString::fromStdString(RBUtils::getTimeIntervalMMSSMSStr(lyrics::millisFromSeconds(seconds)));
}

void TQLRCEditorViewCtl::spaceKeyDown(QObject *sender)
{
    Q_UNUSED(sender)
    const auto alive = self();
    if (const auto parent = parentVC()) {
        parent->pressPlayPause(nullptr);
    }
}
