// SPDX-License-Identifier: MIT
//
// How a text gets into the line editor, and back into the item.
#include "editor/LyricFile.h"
#include "editor/TQLRCEditorViewCtl.h"
#include "kit/AfterDelay.h"
#include "shell/contracts/WXEAudioFile.h"

#include <chrono>

namespace {

using namespace std::chrono_literals;

// Long enough for the table to have laid out the row that is to be edited.
constexpr auto kEditDelay = 100ms;

std::string_view bytes(const QByteArray &text)
{
    return {text.constData(), static_cast<std::size_t>(text.size())};
}

} // namespace

void TQLRCEditorViewCtl::flushWithAudioItem(const std::shared_ptr<WXEAudioFile> &item)
{
    const bool anotherItemsText = item != m_audioFile && m_textIsNewSinceItem;
    m_audioFile = item;
    m_textIsNewSinceItem = false;
    if (anotherItemsText) {
        showFirstLine();
    }
}

void TQLRCEditorViewCtl::flushWithOriginalSongText(const QByteArray &text)
{
    m_originSong.buildWithLrcText(bytes(text));
    m_song.buildWithLrcText(bytes(text));
    m_textIsNewSinceItem = true;
    reloadDataWithLrcChanged();
    showFirstLine();
}

void TQLRCEditorViewCtl::flushWithSongText(const QByteArray &text)
{
    m_song.buildWithLrcText(bytes(text));
    m_textIsNewSinceItem = true;
    reloadDataWithLrcChanged();
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
    m_song.insertLine_atIndex(RBSongLine::emptyLine(), 0);
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

void TQLRCEditorViewCtl::dropView_didDropFiles(DropTipView *dropView, const QStringList &paths)
{
    Q_UNUSED(dropView)
    if (!paths.isEmpty()) {
        loadWithFileUrl(QUrl::fromLocalFile(paths.first()));
    }
}
