// SPDX-License-Identifier: MIT
#include "host/DeskWindow.h"

#include "host/DeskSaving.h"
#include "host/DeskSearch.h"
#include "host/HelpPage.h"
#include "host/Playback.h"
#include "host/Song.h"
#include "media/items/TaggedAudioFile.h"
#include "media/player/PeakReader.h"
#include "media/player/Player.h"
#include "shell/TQWLRCEditorViewCtl.h"
#include "shell/contracts/EditorKeys.h"

#include <QtCore/QFileInfo>
#include <QtCore/QMimeData>
#include <QtCore/QStandardPaths>
#include <QtGui/QCloseEvent>
#include <QtGui/QIcon>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStatusBar>

#include <utility>

namespace desk {

namespace {

std::shared_ptr<PeakProvider> peakProvider()
{
    auto provider = PeakProvider::provider();
    if (!provider) {
        provider = std::make_shared<media::PeakReader>([](const WXEAudioFile &item) {
            const auto *file = dynamic_cast<const media::TaggedAudioFile *>(&item);
            return file ? file->path() : QString();
        });
        PeakProvider::setProvider(provider);
    }
    return provider;
}

} // namespace

DeskWindow::DeskWindow(std::shared_ptr<media::Player> player, const LyricSearch::Settings &search)
    : m_player(std::move(player)), m_peaks(peakProvider()), m_playback(std::make_shared<Playback>(m_player)),
      m_component(TQWLRCEditorViewCtl::initWithPlayer(m_player)), m_search(newSearch(search)),
      m_saving(std::make_unique<DeskSaving>(*this))
{
    // Before the view is loaded, which shows what there is help for.
    m_component->config()->setHelpUrl(helpPage());
    m_component->setDelegate(std::weak_ptr<TQLRCEditorViewCtlDelegate>(m_playback));
    setCentralWidget(m_component->view());
    setWindowIcon(QIcon(QStringLiteral(":/tqlrceditor/lyricdesk.svg")));
    resize(QSize(1040, 700).boundedTo(screen()->availableSize() * 0.9));
    setAcceptDrops(true);
    statusBar()->setSizeGripEnabled(false);
    buildFileMenu();
    buildEditMenu();
    buildViewMenu();
    buildPlaybackMenu();
    buildHelpMenu();
    wirePlayer();

    m_compareSoon.setSingleShot(true);
    m_compareSoon.setInterval(0);
    connect(&m_compareSoon, &QTimer::timeout, this, &DeskWindow::updateModified);
    m_playback->setOnLyricChanged([this] { m_compareSoon.start(); });
    qApp->installEventFilter(this);
    connect(m_saving.get(), &DeskSaving::ended, this, &DeskWindow::showSaved);
    updateTitle();
}

DeskWindow::~DeskWindow()
{
    qApp->removeEventFilter(this);
    // Before the editor that waits for the answer.
    m_search.reset();
    m_playback->setOnLyricChanged({});
    // The view belongs to the component; the window must not take it along.
    takeCentralWidget();
}

std::unique_ptr<DeskSearch> DeskWindow::newSearch(const LyricSearch::Settings &settings)
{
    return std::make_unique<DeskSearch>(*this, settings, [this] {
        return m_song ? LyricSearch::SongFacts{m_song->album(), m_song->duration()}
                      : LyricSearch::SongFacts();
    });
}

void DeskWindow::buildFileMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&File"));
    menu->addAction(tr("&Open song…"), QKeySequence::Open, this, &DeskWindow::chooseSong);
    menu->addAction(tr("Open the &demonstration song"), this, &DeskWindow::openDemonstration);
    menu->addAction(m_component->action(EditorCommand::OpenLyricFile));
    menu->addAction(m_component->action(EditorCommand::SearchLyric));
    menu->addSeparator();
    menu->addAction(tr("&Save lyric into the song"), QKeySequence::Save, this, &DeskWindow::beginSave);
    menu->addSeparator();
    menu->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);
}

void DeskWindow::buildEditMenu()
{
    using enum EditorCommand;
    QMenu *menu = menuBar()->addMenu(tr("&Edit"));
    const std::initializer_list<std::initializer_list<EditorCommand>> groups = {{Undo, Redo},
        {Copy, Paste, PasteTextAsLines, SelectAll}, {InsertLineBefore, InsertLineAfter, DuplicateLine},
        {MoveUp, MoveDown, MergeWithNext, SplitAtCaret}, {MakeTitle, MakeArtist, MakeAlbum, MakeEditedBy},
        {Untag, UntagAll}, {DeleteLines, DeleteAllLines, RestoreAll}};
    for (const auto &group : groups) {
        for (const EditorCommand command : group) {
            menu->addAction(m_component->action(command));
        }
        menu->addSeparator();
    }
    menu->removeAction(menu->actions().constLast());
}

void DeskWindow::buildViewMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&View"));
    menu->addAction(m_component->action(EditorCommand::Preview));
    menu->addAction(m_component->action(EditorCommand::ShowSource));
}

void DeskWindow::buildPlaybackMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Playback"));
    using enum EditorCommand;
    const std::initializer_list<std::initializer_list<EditorCommand>> groups = {{Stamp, StampAndStay},
        {StepBack, PlayFromLine}, {NudgeBack10, NudgeForward10, NudgeBack100, NudgeForward100},
        {NudgeBack1000, NudgeForward1000}, {OffsetSelection, OffsetAll}};
    for (const auto &group : groups) {
        for (const EditorCommand command : group) {
            menu->addAction(m_component->action(command));
        }
        menu->addSeparator();
    }
    QAction *playOrPause = menu->addAction(tr("&Play or pause"), this, &DeskWindow::playOrPause);
    playOrPause->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Space),
        QKeySequence(Qt::Key_MediaTogglePlayPause), QKeySequence(Qt::Key_MediaPlay)});
}

void DeskWindow::buildHelpMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Help"));
    menu->addAction(m_component->action(EditorCommand::Help));
    menu->addAction(m_component->action(EditorCommand::ShowKeys));
    menu->addSeparator();
    menu->addAction(tr("&About lyricdesk"), this, &DeskWindow::showAbout);
}

void DeskWindow::wirePlayer()
{
    connect(m_player.get(), &media::Player::failed, this,
        [this](const QString &message) { statusBar()->showMessage(message); });
    connect(m_player.get(), &media::Player::durationChanged, this, [this](double seconds) {
        if (m_song && m_player->playingMusic() == m_song) {
            // Decoding knows the length better than the file's headers; the strip takes it over.
            m_song->setKnownDuration(seconds);
            m_component->refreshItemProperties();
        }
    });
}

void DeskWindow::chooseSong()
{
    const QString folder = m_song && !isDemonstrationSong(m_song->path())
        ? QFileInfo(m_song->path()).path()
        : QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    const QString path = QFileDialog::getOpenFileName(this, tr("Open song"), folder, songFileFilter());
    if (!path.isEmpty()) {
        open(path);
    }
}

std::shared_ptr<media::TaggedAudioFile> DeskWindow::readable(const QString &path)
{
    const auto [item, message] = media::TaggedAudioFile::open(path);
    if (!item) {
        tell(tr("“%1” was not opened").arg(QFileInfo(path).fileName()), message);
    }
    return item;
}

bool DeskWindow::open(const QString &path)
{
    // Beside the reading of the file, and not beside the building of the window, which it would slow down.
    media::Player::prepare();
    m_saving->wait();
    // Read first: what cannot be read replaces nothing, and nobody is asked because of it.
    auto item = readable(path);
    if (!item) {
        return false;
    }
    m_component->commitEditing();
    if (hasUnsavedChanges()) {
        const QByteArray text = m_component->songText();
        const Leave leave = m_song ? askToLeaveSong() : askToTakeLyricTo(*item);
        if (leave == Leave::Stay) {
            return false;
        }
        // Read again: it may be the very file that was just saved.
        item = readable(path);
        if (!item) {
            return false;
        }
        if (leave == Leave::WithLyric) {
            item->setLyric(text);
            item->refreshIsDirty();
        }
    }
    statusBar()->clearMessage();
    m_search->withdraw();
    m_song = item;
    m_component->flushWithAudioItem(item);
    updateTitle();
    updateModified();
    return true;
}

bool DeskWindow::openDemonstration()
{
    QString message;
    const QString path = demonstrationSong(&message);
    if (path.isEmpty()) {
        tell(tr("The demonstration song was not opened"), message);
        return false;
    }
    return open(path);
}

bool DeskWindow::beginSave()
{
    if (!m_song) {
        tell(tr("There is no song to save into"), tr("Open a song first: its file is where the lyric goes."));
        return false;
    }
    m_component->serializeToAudioItem();
    m_saving->begin(m_song);
    return true;
}

bool DeskWindow::save()
{
    return beginSave() && m_saving->wait();
}

void DeskWindow::showSaved(const QString &name, const media::TaggedAudioFile::SaveResult &result)
{
    updateModified();
    statusBar()->clearMessage(); // of a save before
    if (!result.ok && !result.cancelled) {
        tell(tr("The lyric was not saved into %1").arg(name), result.message);
    } else {
        statusBar()->showMessage(result.message.isEmpty() ? tr("Saved into %1").arg(name) : result.message);
    }
}

bool DeskWindow::hasUnsavedChanges() const
{
    const QByteArray text = m_component->songText();
    return m_song ? m_song->isDirty() || text != m_song->lyric() : !text.isEmpty();
}

DeskWindow::Leave DeskWindow::askToLeaveSong()
{
    QMessageBox question(QMessageBox::Question, QApplication::applicationName(),
        tr("The lyric of “%1” has changes that are not saved.").arg(nameOfSong()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    question.setTextFormat(Qt::PlainText);
    question.setInformativeText(tr("If you do not save them, they are lost."));
    question.button(QMessageBox::Save)->setText(tr("&Save"));
    question.button(QMessageBox::Discard)->setText(tr("&Don't save"));
    question.button(QMessageBox::Cancel)->setText(tr("&Cancel"));
    question.setDefaultButton(QMessageBox::Save);
    switch (question.exec()) {
    case QMessageBox::Save:
        return save() ? Leave::WithoutLyric : Leave::Stay;
    case QMessageBox::Discard:
        return Leave::WithoutLyric;
    default:
        return Leave::Stay;
    }
}

DeskWindow::Leave DeskWindow::askToTakeLyricTo(const media::TaggedAudioFile &next)
{
    const QString name = QFileInfo(next.path()).fileName();
    QMessageBox question(QMessageBox::Question, QApplication::applicationName(),
        tr("The lyric that you wrote belongs to no song yet. Use it for “%1”?").arg(name),
        QMessageBox::Yes | QMessageBox::Discard | QMessageBox::Cancel, this);
    question.setTextFormat(Qt::PlainText);
    question.setInformativeText(next.lyric().isEmpty()
            ? tr("It goes into the file when you save.")
            : tr("When you save, it takes the place of the lyric that the file carries."));
    question.button(QMessageBox::Yes)->setText(tr("&Use it"));
    question.button(QMessageBox::Discard)->setText(tr("&Don't keep it"));
    question.button(QMessageBox::Cancel)->setText(tr("&Cancel"));
    question.setDefaultButton(QMessageBox::Yes);
    switch (question.exec()) {
    case QMessageBox::Yes:
        return Leave::WithLyric;
    case QMessageBox::Discard:
        return Leave::WithoutLyric;
    default:
        return Leave::Stay;
    }
}

bool DeskWindow::mayClose()
{
    m_component->commitEditing();
    m_saving->wait();
    return !hasUnsavedChanges() || askToLeaveSong() != Leave::Stay;
}

void DeskWindow::playOrPause()
{
    m_component->pressPlayPause(nullptr);
}

void DeskWindow::showAbout()
{
    QMessageBox::about(this, tr("About lyricdesk"),
        tr("lyricdesk %1\n\nWrites time-synchronised lyrics into your songs. Press Enter as each line is "
           "sung.")
            .arg(QApplication::applicationVersion()));
}

QString DeskWindow::nameOfSong() const
{
    if (!m_song) {
        return tr("No song");
    }
    return m_song->title().isEmpty() ? QFileInfo(m_song->path()).fileName() : m_song->title();
}

void DeskWindow::updateTitle()
{
    // A doubled mark stands for itself and is not taken for the place of the unsaved sign.
    const QString song = nameOfSong().simplified().replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    setWindowTitle(song + QStringLiteral("[*] – lyricdesk"));
    setWindowFilePath(m_song ? m_song->path() : QString());
}

void DeskWindow::updateModified()
{
    setWindowModified(hasUnsavedChanges());
}

void DeskWindow::tell(const QString &what, const QString &message)
{
    QMessageBox box(QMessageBox::Warning, QApplication::applicationName(), what, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(message);
    box.exec();
}

void DeskWindow::closeEvent(QCloseEvent *event)
{
    if (!mayClose()) {
        event->ignore();
        return;
    }
    m_player->pause();
    event->accept();
}

void DeskWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (looksLikeSong(firstLocalFile(event->mimeData()))) {
        event->acceptProposedAction();
    }
}

bool DeskWindow::isSongDrop(QObject *watched, const QMimeData *dragged) const
{
    const auto *widget = qobject_cast<QWidget *>(watched);
    if (!widget || widget->window() != this) {
        return false;
    }
    const QString path = firstLocalFile(dragged);
    // The player strip takes some files whose names say less, and takes them by itself.
    return looksLikeSong(path) || (widget->inherits("RBPlayingBgView") && !path.isEmpty());
}

bool DeskWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Drop) {
        return QMainWindow::eventFilter(watched, event);
    }
    auto *drop = static_cast<QDropEvent *>(event);
    if (!isSongDrop(watched, drop->mimeData())) {
        return QMainWindow::eventFilter(watched, event);
    }
    // Wherever in the window a song is dropped, the strip included, the user is asked about
    // unsaved changes first; and only after the drag is over, since the other program waits for it.
    const QString path = firstLocalFile(drop->mimeData());
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(watched, &leave);
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    QMetaObject::invokeMethod(
        this, [this, path] { open(path); }, Qt::QueuedConnection);
    return true;
}

} // namespace desk
