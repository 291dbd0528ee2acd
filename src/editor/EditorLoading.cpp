// SPDX-License-Identifier: MIT
//
// How a text gets into the line editor, and back into the item.
#include "editor/EditorStep.h"
#include "editor/LyricFile.h"
#include "editor/TQLRCEditorViewCtl.h"
#include "kit/AfterDelay.h"
#include "kit/TQAlert.h"
#include "resources/Localized.h"
#include "shell/contracts/WXEAudioFile.h"

#include <QtCore/QFileInfo>
#include <QtWidgets/QFileDialog>

#include <chrono>
#include <utility>

namespace {

using namespace std::chrono_literals;

// Long enough for the table to have laid out the row that is to be edited.
constexpr auto kEditDelay = 100ms;

std::string_view bytes(const QByteArray &text)
{
    return {text.constData(), static_cast<std::size_t>(text.size())};
}

// Empty when none was chosen, and when the window under the dialog went away meanwhile.
QString chosenLyricFile(QWidget *parent)
{
    const QPointer<QFileDialog> dialog = new QFileDialog(parent, localized(QStringLiteral("Open lyric file")),
        QString(), localized(QStringLiteral("Lyrics (*.lrc *.txt);;All files (*)")));
    dialog->setFileMode(QFileDialog::ExistingFile);
    const bool isChosen = dialog->exec() == QDialog::Accepted && dialog;
    const QStringList files = isChosen ? dialog->selectedFiles() : QStringList();
    delete dialog;
    return files.value(0);
}

} // namespace

void TQLRCEditorViewCtl::flushWithAudioItem(const std::shared_ptr<WXEAudioFile> &item)
{
    const bool isAnother = item != m_audioFile;
    const bool anotherItemsText = isAnother && m_textIsNewSinceItem;
    m_audioFile = item;
    m_textIsNewSinceItem = false;
    if (isAnother) {
        m_history.clear();
        forgetSpellingOfCopies();
    }
    if (anotherItemsText) {
        showFirstLine();
    }
    // The host may have registered a service since.
    refreshActions();
}

void TQLRCEditorViewCtl::flushWithOriginalSongText(const QByteArray &text)
{
    // What is still being typed belongs to the text that goes.
    flushSource();
    forgetSpellingOfCopies();
    m_song.buildWithLrcText(bytes(text));
    // A copy shares the bytes, and is made faster than they are read again.
    m_originSong = m_song;
    m_history.clear();
    m_textIsNewSinceItem = true;
    reloadDataWithLrcChanged();
    showFirstLine();
}

void TQLRCEditorViewCtl::flushWithSongText(const QByteArray &text)
{
    commitEditing();
    const Step step(*this, localized(QStringLiteral("load lyric")));
    RBEditSong song;
    song.buildWithLrcText(bytes(text));
    changes().replace(std::move(song));
    m_textIsNewSinceItem = true;
    reloadDataWithLrcChanged();
    if (selection().rows.empty()) {
        showFirstLine();
    }
}

void TQLRCEditorViewCtl::showFirstLine()
{
    if (m_tableView) {
        m_tableView->selectSingleRow(0);
        m_tableView->scrollToTop();
    }
}

QByteArray TQLRCEditorViewCtl::songText()
{
    m_song.updateSongText();
    const std::string_view text = m_song.songText();
    return {text.data(), static_cast<qsizetype>(text.size())};
}

int TQLRCEditorViewCtl::songLinesNum() const
{
    return static_cast<int>(m_song.aryLines().size());
}

bool TQLRCEditorViewCtl::isLrcChanged() const
{
    return !m_song.isEqual(m_originSong);
}

bool TQLRCEditorViewCtl::serializeToAudioItem()
{
    commitEditing();
    const QByteArray text = songText();
    // Without an item the text is compared with nothing, and has nowhere to go.
    const QByteArray current = m_audioFile ? m_audioFile->lyric() : QByteArray();
    if (current == text) {
        return false;
    }
    if (m_audioFile) {
        m_audioFile->setLyric(text);
        m_audioFile->refreshIsDirty();
    }
    return true;
}

void TQLRCEditorViewCtl::importClick(QObject *sender)
{
    Q_UNUSED(sender)
    const Step step(*this, localized(QStringLiteral("new line")));
    changes().insert(0, RBSongLine::emptyLine());
    reloadDataWithLrcChanged();
    editSoon(1, 0);
}

void TQLRCEditorViewCtl::editSoon(int column, int row)
{
    kit::afterDelay(kEditDelay, [self = self(), column, row] {
        if (self->m_tableView) {
            self->m_tableView->editColumn_row_select(column, row, true);
        }
    });
}

void TQLRCEditorViewCtl::loadWithFileUrl(const QUrl &url)
{
    const QByteArray text = editor::readUtf8File(url.toLocalFile());
    if (!text.isEmpty()) {
        flushWithSongText(text);
    }
}

void TQLRCEditorViewCtl::openLyricFile(QObject *sender)
{
    Q_UNUSED(sender)
    const auto alive = self();
    const QString path = chosenLyricFile(viewIfLoaded());
    if (path.isEmpty()) {
        return;
    }
    if (editor::readUtf8File(path).isEmpty()) {
        TQAlert::OK_info(localized(QStringLiteral("This file was not opened.")),
            localized(QStringLiteral("It is empty, cannot be read, or is not in UTF-8. Save it as UTF-8 and "
                                     "open it again.")));
        return;
    }
    loadWithFileUrl(QUrl::fromLocalFile(path));
}

void TQLRCEditorViewCtl::tableView_didDropFiles(MyTableView *tableView, const QStringList &paths)
{
    Q_UNUSED(tableView)
    const auto alive = self();
    const QString name = QFileInfo(paths.first()).fileName();
    if (!editor::isLyricFileName(name) || editor::readUtf8File(paths.first()).isEmpty()) {
        tell(localized(QStringLiteral("“%1” is no lyric file (.lrc or .txt, in UTF-8).")).arg(name));
        return;
    }
    dropView_didDropFiles(nullptr, paths);
    tell(localized(QStringLiteral("“%1” is here. Undo brings back the lyric before it.")).arg(name));
}

void TQLRCEditorViewCtl::dropView_didDropFiles(DropTipView *dropView, const QStringList &paths)
{
    Q_UNUSED(dropView)
    if (!paths.isEmpty()) {
        loadWithFileUrl(QUrl::fromLocalFile(paths.first()));
    }
}
