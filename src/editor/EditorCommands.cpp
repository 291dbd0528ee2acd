// SPDX-License-Identifier: MIT
//
// The commands of the toolbar on tags and on the whole document.
#include "editor/LineCommands.h"
#include "editor/TQLRCEditorViewCtl.h"

void TQLRCEditorViewCtl::insertTitleTag(QObject *sender)
{
    Q_UNUSED(sender)
    insertPropertyTag(QStringLiteral("ti"));
}

void TQLRCEditorViewCtl::insertArtistTag(QObject *sender)
{
    Q_UNUSED(sender)
    insertPropertyTag(QStringLiteral("ar"));
}

void TQLRCEditorViewCtl::insertAlbumTag(QObject *sender)
{
    Q_UNUSED(sender)
    insertPropertyTag(QStringLiteral("al"));
}

void TQLRCEditorViewCtl::insertEditedByTag(QObject *sender)
{
    Q_UNUSED(sender)
    insertPropertyTag(QStringLiteral("by"));
}

void TQLRCEditorViewCtl::insertPropertyTag(const QString &key)
{
    RBSongLine *line = getSelectedLine();
    if (!line) {
        return;
    }
    const auto alive = self();
    editor::makeTagLine(*line, key.toStdString());
    reloadDataWithLrcChanged();
    selectNextLine(false);
}

void TQLRCEditorViewCtl::deleteLineTag(QObject *sender)
{
    Q_UNUSED(sender)
    for (const kit::RowRange &range : m_tableView ? m_tableView->selectedRowRanges() : kit::RowRanges()) {
        for (int row = range.first; row <= range.last; ++row) {
            if (RBSongLine *line = getSongLineAtIndex(row)) {
                editor::untag(*line);
            }
        }
    }
    reloadDataWithLrcChanged();
}

void TQLRCEditorViewCtl::deleteAllTags(QObject *sender)
{
    Q_UNUSED(sender)
    editor::untagAll(m_song);
    reloadDataWithLrcChanged();
}

void TQLRCEditorViewCtl::restoreAllClick(QObject *sender)
{
    Q_UNUSED(sender)
    m_song.buildWithLrcText(m_originSong.songText());
    reloadDataWithLrcChanged();
}

void TQLRCEditorViewCtl::resetFristResponderForTextView(QObject *sender)
{
    Q_UNUSED(sender)
}
