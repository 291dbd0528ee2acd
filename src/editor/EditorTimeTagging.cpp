// SPDX-License-Identifier: MIT
//
// Stamping the play position onto lines, and moving the selection while doing so.
#include "editor/EditorStep.h"
#include "editor/LineCommands.h"
#include "editor/TQLRCEditorViewCtl.h"
#include "lyrics/Millis.h"
#include "lyrics/RBUtils.h"
#include "resources/Localized.h"
#include "views/RBNoResponseTextFiled.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace {

// So many rows below the one that was left are kept in view, for the singer's next words.
constexpr int kLookAheadRows = 6;
// Long enough to find into the rhythm before the line comes.
constexpr std::int64_t kRunUpMillis = 2000;

double secondsFromMillis(std::int64_t millis)
{
    return static_cast<double>(millis) / 1000.0;
}

} // namespace

void TQLRCEditorViewCtl::stampSelectedLine()
{
    if (const auto parent = parentVC()) {
        parent->tryToPlay();
    }
    tryInsertWithEmpty();
    const QString position = m_lblTabTime ? m_lblTabTime->text() : QString();
    const std::int64_t millis = RBUtils::getTimeInterval(position.toStdString());
    if (changes().change(
            selection().selectedRow, [millis](RBSongLine &line) { editor::stamp(line, millis); })) {
        showThatItStamped();
    }
    reloadDataWithLrcChanged();
}

void TQLRCEditorViewCtl::insertTimeTag(QObject *sender)
{
    Q_UNUSED(sender)
    const Step step(*this, localized(QStringLiteral("stamp")));
    const int song = m_history.generation();
    stampSelectedLine();
    // The host may have shown another song when it was told.
    if (song == m_history.generation()) {
        selectNextLine(false);
    }
}

void TQLRCEditorViewCtl::insertTimeTagAndStay(QObject *sender)
{
    Q_UNUSED(sender)
    const Step step(*this, localized(QStringLiteral("stamp")));
    stampSelectedLine();
}

void TQLRCEditorViewCtl::tryInsertWithEmpty()
{
    if (m_song.aryLines().empty()) {
        const Step step(*this, localized(QStringLiteral("new line")));
        changes().insert(0, RBSongLine::emptyLine());
        reloadDataWithLrcChanged();
    }
}

void TQLRCEditorViewCtl::selectNextLine(bool edit)
{
    Q_UNUSED(edit)
    const Step step(*this, localized(QStringLiteral("new line")));
    const auto selected = m_tableView ? m_tableView->selectedRowRanges() : kit::RowRanges();
    if (selected.empty()) {
        return;
    }
    const int last = selected.back().last;
    const int next = last + 1;
    if (const int rows = m_tableView->numberOfRows(); next >= rows) {
        changes().insert(static_cast<std::size_t>(rows), RBSongLine::emptyLine());
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

void TQLRCEditorViewCtl::stepBack(QObject *sender)
{
    Q_UNUSED(sender)
    const auto alive = self();
    selectPrevLine(false);
    const RBSongLine *line = editor::lineAt(m_song, selection().selectedRow);
    if (const auto parent = parentVC(); parent && line && !line->aryTimes().empty()) {
        parent->seekTo(secondsFromMillis(*std::prev(line->aryTimes().end())));
    }
}

void TQLRCEditorViewCtl::playFromLine(QObject *sender)
{
    Q_UNUSED(sender)
    const auto alive = self();
    int row = selection().selectedRow;
    while (row > 0 && editor::lineAt(m_song, row)->aryTimes().empty()) {
        --row;
    }
    const RBSongLine *line = editor::lineAt(m_song, row);
    if (const auto parent = parentVC(); parent && line) {
        const std::int64_t time = line->aryTimes().firstObject().value_or(0);
        parent->playFrom(secondsFromMillis(lyrics::shifted(time, -kRunUpMillis)));
    }
}

void TQLRCEditorViewCtl::nudge(std::int64_t millis)
{
    const auto rows = selection().rows;
    if (!rows.empty()) {
        const Step step(*this, localized(QStringLiteral("nudge")));
        shiftTimes(rows, millis);
    }
}

void TQLRCEditorViewCtl::updatePlayerProgress(double seconds)
{
    m_positionMillis = lyrics::millisFromSeconds(seconds);
    updateSungRow();
    if (!m_lblTabTime) {
        return;
    }
    const std::string text = '[' + RBUtils::getTimeIntervalMMSSMSStr(m_positionMillis) + ']';
    // A hundred ticks a second, and most of them within the same hundredth: painted once.
    if (m_lblTabTime->text() != QLatin1String(text.data(), static_cast<qsizetype>(text.size()))) {
        m_lblTabTime->setText(QString::fromStdString(text));
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
