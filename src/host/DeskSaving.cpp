// SPDX-License-Identifier: MIT
#include "host/DeskSaving.h"

#include <QtCore/QEventLoop>
#include <QtCore/QFileInfo>
#include <QtCore/QPointer>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QProgressDialog>
#include <QtWidgets/QStatusBar>

#include <utility>

namespace desk {

namespace {

/// What is done sooner needs no sign that it goes on.
constexpr int kPatienceMilliseconds = 300;
constexpr int kSteps = 1000;

QString nameOf(const media::TaggedAudioFile &song)
{
    return QFileInfo(song.path()).fileName();
}

} // namespace

DeskSaving::DeskSaving(QMainWindow &window)
    : m_window(window),
      m_status(window, {tr("Saving"), tr("Cancel saving")}, QStringLiteral("btnCancelSaving"))
{
    m_showSoon.setSingleShot(true);
    m_showSoon.setInterval(kPatienceMilliseconds);
    connect(&m_showSoon, &QTimer::timeout, this, &DeskSaving::showSaving);
    connect(this, &DeskSaving::progressed, &m_status, &StatusWork::setDone);
    connect(&m_status, &StatusWork::cancelled, this, [this] {
        if (m_song) {
            m_song->cancelSave();
        }
    });
}

void DeskSaving::begin(const std::shared_ptr<media::TaggedAudioFile> &song)
{
    if (m_song) {
        m_onceMore = m_onceMore || m_song == song;
        return;
    }
    m_song = song;
    m_lastSucceeded = false;
    m_showSoon.start();
    const QPointer<DeskSaving> self(this);
    // The song is held by its own save: the user hears of its end also when another song is open by then.
    const bool begun = song->beginSave({[self](double done) {
                                            if (self) {
                                                Q_EMIT self->progressed(done);
                                            }
                                        },
        [self, song](const media::TaggedAudioFile::SaveResult &result) {
            if (self) {
                self->end(result);
            }
        }});
    if (!begun) {
        end({false, tr("The song is being saved already.")});
    }
}

void DeskSaving::end(const media::TaggedAudioFile::SaveResult &result)
{
    m_showSoon.stop();
    m_status.hide();
    m_lastSucceeded = result.ok;
    const auto song = std::exchange(m_song, nullptr);
    if (std::exchange(m_onceMore, false) && result.ok) {
        begin(song);
    } else {
        Q_EMIT ended(nameOf(*song), result);
    }
}

void DeskSaving::showSaving()
{
    m_window.statusBar()->clearMessage();
    m_status.show(tr("Saving into %1…").arg(nameOf(*m_song)));
}

bool DeskSaving::wait()
{
    if (!m_song) {
        return m_lastSucceeded;
    }
    QEventLoop loop;
    connect(this, &DeskSaving::ended, &loop, &QEventLoop::quit);
    QTimer::singleShot(kPatienceMilliseconds, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!m_song) {
        return m_lastSucceeded;
    }
    QProgressDialog dialog(tr("Saving into %1…").arg(nameOf(*m_song)), tr("Cancel"), 0, kSteps, &m_window);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setMinimumDuration(0);
    dialog.setAutoReset(false);
    connect(this, &DeskSaving::progressed, &dialog,
        [&dialog](double done) { dialog.setValue(int(done * kSteps)); });
    connect(&dialog, &QProgressDialog::canceled, this, [this, &dialog] {
        // A value that comes late would show the dialog again.
        disconnect(this, &DeskSaving::progressed, &dialog, nullptr);
        if (m_song) {
            m_song->cancelSave();
        }
    });
    dialog.show();
    loop.exec();
    return m_lastSucceeded;
}

} // namespace desk
