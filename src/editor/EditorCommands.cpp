// SPDX-License-Identifier: MIT
//
// The commands of the toolbar on tags and on the whole document.
#include "editor/EditorStep.h"
#include "editor/LineCommands.h"
#include "editor/TQLRCEditorViewCtl.h"
#include "resources/Localized.h"

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
    if (!getSelectedLine()) {
        return;
    }
    const Step step(*this, localized(QStringLiteral("tag")));
    changes().change(selection().selectedRow,
        [tag = key.toStdString()](RBSongLine &line) { editor::makeTagLine(line, tag); });
    reloadDataWithLrcChanged();
    selectNextLine(false);
}

void TQLRCEditorViewCtl::deleteLineTag(QObject *sender)
{
    Q_UNUSED(sender)
    const auto rows = selection().rows;
    const Step step(*this, localized(QStringLiteral("untag")));
    changes().changeEach(rows, editor::untag);
    reloadDataWithLrcChanged();
}

void TQLRCEditorViewCtl::deleteAllTags(QObject *sender)
{
    Q_UNUSED(sender)
    const Step step(*this, localized(QStringLiteral("untag all")));
    changes().changeEach(changes().allRows(), editor::untag);
    reloadDataWithLrcChanged();
}

void TQLRCEditorViewCtl::restoreAllClick(QObject *sender)
{
    Q_UNUSED(sender)
    flushSource();
    const Step step(*this, localized(QStringLiteral("restore")));
    RBEditSong song;
    song.buildWithLrcText(m_originSong.songText());
    changes().replace(std::move(song));
    reloadDataWithLrcChanged();
}

void TQLRCEditorViewCtl::resetFristResponderForTextView(QObject *sender)
{
    Q_UNUSED(sender)
}
