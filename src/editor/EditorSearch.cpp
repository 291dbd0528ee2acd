// SPDX-License-Identifier: MIT
//
// Fetching a lyric through the host's service.
#include "editor/EditorActions.h"
#include "editor/EditorStep.h"
#include "editor/TQLRCEditorViewCtl.h"
#include "resources/Localized.h"
#include "resources/TQLrcUtils.h"
#include "shell/contracts/TQInterfaceConfig.h"
#include "shell/contracts/WXEAudioFile.h"

namespace {

std::shared_ptr<TQLrcDownloadInterface> downloadService()
{
    const auto bridge = TQInterfaceConfig::getBridge();
    return bridge ? bridge->lrcDownloadInterface() : nullptr;
}

QString orEmpty(const QString &text)
{
    return text.isNull() ? QLatin1String("") : text;
}

} // namespace

void TQLRCEditorViewCtl::searchLyricClick(QObject *sender)
{
    Q_UNUSED(sender)
    // Without an item both stay null, which tells the service that there is none.
    QString title;
    QString artist;
    if (m_audioFile) {
        title = orEmpty(m_audioFile->title());
        artist = orEmpty(m_audioFile->artist());
    }
    if (const auto service = downloadService()) {
        service->requestLyric_artist_completion(
            title, artist, [self = self()](const QByteArray &text) { self->takeFoundLyric(text); });
    }
}

void TQLRCEditorViewCtl::takeFoundLyric(const QByteArray &text)
{
    if (text.isEmpty()) {
        return;
    }
    // What is being typed is a step of its own.
    commitEditing();
    const Step step(*this, localized(QStringLiteral("search")));
    flushWithSongText(text);
}

bool TQLRCEditorViewCtl::canSearch() const
{
    return downloadService() != nullptr;
}

void TQLRCEditorViewCtl::wireSearchButton()
{
    m_btnSearch->setIcon(TQLrcUtils::iconNamed(QStringLiteral("lyric_search")));
    wireButton(m_btnSearch, &TQLRCEditorViewCtl::searchLyricClick);
    connect(action(EditorCommand::SearchLyric), &QAction::enabledChanged, this,
        &TQLRCEditorViewCtl::refreshSearchButton);
    refreshSearchButton();
}

// Not as the action, which rests while the keyboard is in a field of the host.
void TQLRCEditorViewCtl::refreshSearchButton()
{
    if (m_btnSearch) {
        m_btnSearch->setEnabled(canSearch());
    }
}
