// SPDX-License-Identifier: MIT
//
// How rows look beside their values: chips, marks for what is wrong, and the line that is sung.
#include "editor/EditorActions.h"
#include "editor/LineColumns.h"
#include "editor/ProblemTexts.h"
#include "editor/TQLRCEditorViewCtl.h"
#include "kit/AfterDelay.h"
#include "lyrics/Millis.h"
#include "shell/contracts/WXEAudioFile.h"

#include <QtCore/QStringList>

#include <chrono>

namespace {

using namespace std::chrono_literals;

// After the paint of the change itself.
constexpr auto kSungRowDelay = 50ms;

QString textOfProblems(const std::vector<editor::LineProblem> &problems, std::size_t timeIndex)
{
    QStringList texts;
    for (const editor::LineProblem &problem : problems) {
        if (problem.timeIndex == timeIndex) {
            texts.append(editor::problemText(problem));
        }
    }
    return texts.join(QLatin1Char('\n'));
}

} // namespace

kit::CellLook TQLRCEditorViewCtl::tableView_lookOfCell(
    MyTableView *tableView, const QString &identifier, int row)
{
    Q_UNUSED(tableView)
    const RBSongLine *line = editor::lineAt(m_song, row);
    if (!line) {
        return {};
    }
    kit::CellLook look;
    look.quiet = true;
    if (identifier == editor::numberColumnIdentifier()) {
        look.current = row == m_sungRow;
    } else if (identifier == editor::textColumnIdentifier()) {
        look.quiet = line->isOtherTag();
        look.chip = editor::chipText(*line);
        look.problem = textOfProblems(problemsOfRow(row), editor::LineProblem::kText);
    } else if (const auto index = editor::timeIndex(identifier); index && *index < line->aryTimes().size()) {
        look.problem = textOfProblems(problemsOfRow(row), *index);
    }
    return look;
}

const std::vector<editor::LineProblem> &TQLRCEditorViewCtl::problemsOfRow(int row)
{
    if (m_problemRow != row) {
        m_problems = editor::problemsOf(m_song, static_cast<std::size_t>(row), audioMillis());
        m_problemRow = row;
    }
    return m_problems;
}

std::int64_t TQLRCEditorViewCtl::audioMillis() const
{
    return m_audioFile ? lyrics::millisFromSeconds(m_audioFile->duration()) : 0;
}

void TQLRCEditorViewCtl::documentChanged()
{
    m_problemRow = -1;
    m_sungLine.invalidate();
    refreshActions();
    // What was told was told of the document before.
    tell({});
    showSungRowSoon();
    m_ticks.reset();
    showTicksSoon();
    if (m_tableView) {
        // What is wrong with a line depends on its neighbours.
        m_tableView->viewport()->update();
    }
}

void TQLRCEditorViewCtl::showSungRowSoon()
{
    // While the song plays the next report of the player is sooner; this is for when it does not.
    if (!m_sungRowIsDue) {
        m_sungRowIsDue = true;
        kit::afterDelay(kSungRowDelay, [weak = std::weak_ptr(self())] {
            if (const auto editor = weak.lock()) {
                editor->m_sungRowIsDue = false;
                editor->updateSungRow();
            }
        });
    }
}

void TQLRCEditorViewCtl::updateSungRow()
{
    const int row = m_sungLine.rowAt(m_positionMillis);
    if (row == m_sungRow) {
        return;
    }
    const int before = std::exchange(m_sungRow, row);
    if (m_tableView) {
        m_tableView->redrawRow(before);
        m_tableView->redrawRow(row);
    }
}
