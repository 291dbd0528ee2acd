// SPDX-License-Identifier: MIT
#include "shell/TQWLRCEditorViewCtl.h"

#include "editor/TQLRCEditorViewCtl.h"
#include "kit/Alert.h"
#include "player/TQLRCEditorMiniPlayerViewCtl.h"
#include "preview/RBPreviewViewController.h"
#include "resources/Localized.h"
#include "resources/Resources.h"

#include <QtCore/QLoggingCategory>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcShell, "tqlrceditor.shell")

constexpr int kMiniPlayerHeight = 80;

} // namespace

void TQWLRCEditorViewCtl::initialize()
{
    resources::ensureLoaded();
    gEditorConfig = std::make_shared<TQLRCEditorConfig>();
    gEditorConfig->setPromptForMetaLrc(false);
    gEditorConfig->setSupportDragAudioInto(true);
}

std::shared_ptr<TQWLRCEditorViewCtl> TQWLRCEditorViewCtl::initWithPlayer(
    const std::shared_ptr<TQAudioPlayerProtocol> &player)
{
    if (!gEditorConfig) {
        initialize();
    }
    struct Constructible : TQWLRCEditorViewCtl
    { };
    const std::shared_ptr<TQWLRCEditorViewCtl> container = std::make_shared<Constructible>();
    container->m_playerViewCtl = TQLRCEditorMiniPlayerViewCtl::initWithPlayer(player);
    container->m_playerViewCtl->setDelegate(container->m_delegate);
    container->m_playerViewCtl->setParentVC(std::weak_ptr<EditorContainer>(container));
    container->m_mcPlayer = player;
    return container;
}

TQWLRCEditorViewCtl::~TQWLRCEditorViewCtl()
{
    qCInfo(lcShell, "dealloced...");
}

std::shared_ptr<TQWLRCEditorViewCtl> TQWLRCEditorViewCtl::self()
{
    return std::static_pointer_cast<TQWLRCEditorViewCtl>(shared_from_this());
}

QString TQWLRCEditorViewCtl::nibName() const
{
    return QStringLiteral("TQWLRCEditorViewCtl");
}

void TQWLRCEditorViewCtl::setDelegate(const std::weak_ptr<TQLRCEditorViewCtlDelegate> &delegate)
{
    m_delegate = delegate;
    if (m_playerViewCtl) {
        m_playerViewCtl->setDelegate(delegate);
    }
}

std::shared_ptr<TQLRCEditorConfig> TQWLRCEditorViewCtl::config() const
{
    return gEditorConfig;
}

std::shared_ptr<TQLRCEditorViewCtl> TQWLRCEditorViewCtl::editorViewCtl()
{
    if (!m_editorViewCtl) {
        m_editorViewCtl = TQLRCEditorViewCtl::init();
        m_editorViewCtl->setDelegate(m_delegate);
        m_editorViewCtl->setParentVC(std::weak_ptr<EditorContainer>(self()));
    }
    return m_editorViewCtl;
}

std::shared_ptr<RBPreviewViewController> TQWLRCEditorViewCtl::previewingCtl()
{
    if (!m_previewingCtl) {
        m_previewingCtl = RBPreviewViewController::init();
        m_previewingCtl->setParentVC(std::weak_ptr<EditorContainer>(self()));
    }
    return m_previewingCtl;
}

void TQWLRCEditorViewCtl::viewDidLoad()
{
    ViewController::viewDidLoad();
    addChildViewController(editorViewCtl());
    addChildViewController(previewingCtl());
    addChildViewController(m_playerViewCtl);
    for (ViewController *child : {static_cast<ViewController *>(m_editorViewCtl.get()),
             static_cast<ViewController *>(m_playerViewCtl.get())}) {
        if (QWidget *childView = child ? child->view() : nullptr) {
            childView->setParent(view());
            childView->show();
        }
    }
    layoutChildren();
    trytoUpdatePlayerStatus();
}

void TQWLRCEditorViewCtl::viewWillLayout()
{
    ViewController::viewWillLayout();
    layoutChildren();
}

void TQWLRCEditorViewCtl::layoutChildren()
{
    const QRect bounds = view()->rect();
    const QRect upper(0, 0, bounds.width(), std::max(0, bounds.height() - kMiniPlayerHeight));
    const QRect strip(0, bounds.height() - kMiniPlayerHeight, bounds.width(), kMiniPlayerHeight);
    if (QWidget *editorView = m_editorViewCtl ? m_editorViewCtl->viewIfLoaded() : nullptr) {
        editorView->setGeometry(upper);
    }
    if (QWidget *playerView = m_playerViewCtl ? m_playerViewCtl->viewIfLoaded() : nullptr) {
        playerView->setGeometry(strip);
    }
    // On screen only while it stands in the line editor's place.
    if (isPreviewOnScreen()) {
        m_previewingCtl->viewIfLoaded()->setGeometry(upper);
    }
}

void TQWLRCEditorViewCtl::flushWithAudioItem(const std::shared_ptr<WXEAudioFile> &given)
{
    const auto alive = self();
    // Of our own: the caller's may change in a callback.
    const std::shared_ptr<WXEAudioFile> item = given;
    commitEditing();

    m_audioFile = item;
    loadLyricOf(item);
    if (m_audioFile != item) {
        // The host showed another item while it was told of this one, or while the user was asked:
        // that one is complete, and nothing of this one may be mixed into it.
        return;
    }
    editorViewCtl()->flushWithAudioItem(item);
    if (m_playerViewCtl) {
        m_playerViewCtl->flushWithAudioItem(item);
    }
    if (isPreviewOnScreen()) {
        m_previewingCtl->flushWithAudio_lrcText(m_audioFile, editorViewCtl()->songText());
    }
    if (isPlayingCurrent()) {
        m_mcPlayer->play();
    } else if (const auto host = delegate()) {
        host->lrcEditorPlayAudioFile(editorViewCtl()->audioFile());
    }
    trytoUpdatePlayerStatus();
}

void TQWLRCEditorViewCtl::loadLyricOf(const std::shared_ptr<WXEAudioFile> &item)
{
    const QByteArray lyric = item ? item->lyric() : QByteArray();
    if (!gEditorConfig || !gEditorConfig->promptForMetaLrc()) {
        editorViewCtl()->flushWithOriginalSongText(lyric);
    } else if (!lyric.isEmpty() && userWantsLyricOfItem()) {
        editorViewCtl()->flushWithSongText(lyric);
    }
}

bool TQWLRCEditorViewCtl::userWantsLyricOfItem()
{
    kit::Alert alert;
    alert.setMessageText(localized(QStringLiteral(
        "Lyric metadata found in original file, do you want to use this Lryic to perform editing?")));
    alert.addButtonWithTitle(localized(QStringLiteral("Confirm Use")));
    alert.addButtonWithTitle(localized(QStringLiteral("Cancel")));
    return alert.runModal() == kit::Alert::kFirstButton;
}

bool TQWLRCEditorViewCtl::serializeToAudioItem()
{
    const auto alive = self();
    if (!editorViewCtl()->serializeToAudioItem()) {
        return false;
    }
    if (const auto host = delegate()) {
        host->lrcEditorLrcDidChanged();
    }
    return true;
}

void TQWLRCEditorViewCtl::commitEditing()
{
    const auto alive = self();
    if (m_editorViewCtl) {
        m_editorViewCtl->commitEditing();
    }
}

QByteArray TQWLRCEditorViewCtl::songText()
{
    return editorViewCtl()->songText();
}

QAction *TQWLRCEditorViewCtl::action(EditorCommand command)
{
    return editorViewCtl()->action(command);
}

EditorKeys TQWLRCEditorViewCtl::keys()
{
    return editorViewCtl()->keys();
}

void TQWLRCEditorViewCtl::setKeys(const EditorKeys &keys)
{
    editorViewCtl()->setKeys(keys);
}

void TQWLRCEditorViewCtl::refreshItemProperties()
{
    if (m_playerViewCtl) {
        m_playerViewCtl->flushWithAudioItem(m_audioFile);
    }
}

bool TQWLRCEditorViewCtl::isPlaying() const
{
    return m_mcPlayer && m_mcPlayer->isPlaying() && m_mcPlayer->playingMusic() == m_audioFile;
}

bool TQWLRCEditorViewCtl::isPlayingCurrent() const
{
    const auto music = m_mcPlayer ? m_mcPlayer->playingMusic() : nullptr;
    return music && music == m_audioFile;
}

bool TQWLRCEditorViewCtl::tryToPlay()
{
    if (isPlaying()) {
        return false;
    }
    const auto alive = self();
    if (const auto host = delegate()) {
        host->lrcEditorPlayAudioFile(std::shared_ptr<WXEAudioFile>(m_audioFile));
    }
    return true;
}

void TQWLRCEditorViewCtl::trytoUpdatePlayerStatus()
{
    if (!m_mcPlayer) {
        return;
    }
    const std::weak_ptr<TQAudioPlayerObserver> observer = self();
    if (isPlayingCurrent()) {
        m_mcPlayer->registObserver(observer);
    } else {
        m_mcPlayer->removeObserver(observer);
    }
}

void TQWLRCEditorViewCtl::audioPlayer_updateProgress(TQAudioPlayerProtocol *player, double seconds)
{
    Q_UNUSED(player)
    updatePlayerProgress(seconds);
}

void TQWLRCEditorViewCtl::updatePlayerProgress(double seconds)
{
    const auto alive = self();
    editorViewCtl()->updatePlayerProgress(seconds);
    if (m_playerViewCtl) {
        m_playerViewCtl->updatePlayerProgress(seconds);
    }
    if (isPreviewOnScreen()) {
        m_previewingCtl->notifyPlayProgress(seconds);
    }
}

bool TQWLRCEditorViewCtl::isPreviewOnScreen() const
{
    const QWidget *previewView = m_previewingCtl ? m_previewingCtl->viewIfLoaded() : nullptr;
    return previewView && previewView->parentWidget();
}

void TQWLRCEditorViewCtl::pressPlayPause(QObject *sender)
{
    const auto alive = self();
    if (m_playerViewCtl) {
        m_playerViewCtl->PlayPauseClicked(sender);
    }
}

void TQWLRCEditorViewCtl::seekTo(double seconds)
{
    if (isPlayingCurrent()) {
        m_mcPlayer->seek(seconds);
    }
}

void TQWLRCEditorViewCtl::playFrom(double seconds)
{
    const auto alive = self();
    if (!isPlayingCurrent()) {
        tryToPlay();
    }
    if (isPlayingCurrent()) {
        m_mcPlayer->seek(seconds);
        m_mcPlayer->lightPlay();
    }
}

void TQWLRCEditorViewCtl::showTimeTags(const std::vector<double> &all, const std::vector<double> &selected)
{
    if (m_playerViewCtl) {
        m_playerViewCtl->showTimeTags(all, selected);
    }
}

void TQWLRCEditorViewCtl::prPreviewClicked(QObject *sender)
{
    Q_UNUSED(sender)
    const auto alive = self();
    tryToPlay();
    if (!isPreviewOnScreen()) {
        m_focusBeforePreview = QApplication::focusWidget();
    }
    // The keyboard is nobody's while the preview comes: a view that hides would hand it to the next button.
    if (const QWidget *editorView = editorViewCtl()->viewIfLoaded();
        m_focusBeforePreview && editorView && editorView->isAncestorOf(m_focusBeforePreview)) {
        m_focusBeforePreview->clearFocus();
    }
    previewingCtl()->flushWithAudio_lrcText(m_audioFile, editorViewCtl()->songText());
    transitionFromViewController_toViewController_options_completionHandler(
        editorViewCtl(), previewingCtl(), kit::Transition::CrossFade, [] {});
}

void TQWLRCEditorViewCtl::backFromPreview(QObject *sender)
{
    Q_UNUSED(sender)
    const auto alive = self();
    const QWidget *previewView = previewingCtl()->viewIfLoaded();
    const QWidget *focus = QApplication::focusWidget();
    const bool isFocusFree = !focus || (previewView && previewView->isAncestorOf(focus));
    transitionFromViewController_toViewController_options_completionHandler(
        previewingCtl(), editorViewCtl(), kit::Transition::CrossFade, [] {});
    if (isFocusFree) {
        giveFocusToEditor();
    }
    editorViewCtl()->resetFristResponderForTextView(nullptr);
}

// To where it was before, or to the lines: what is typed next is meant for them.
void TQWLRCEditorViewCtl::giveFocusToEditor()
{
    QWidget *editorView = m_editorViewCtl->viewIfLoaded();
    QWidget *before = std::exchange(m_focusBeforePreview, nullptr);
    if (before && editorView && editorView->isAncestorOf(before) && before->isVisibleTo(editorView)) {
        before->setFocus();
    } else if (QWidget *table = m_editorViewCtl->tableView()) {
        table->setFocus();
    }
}

void TQWLRCEditorViewCtl::previewOffsetClicked(QObject *sender)
{
    const auto alive = self();
    editorViewCtl()->moveForward(sender);
    const QByteArray text = editorViewCtl()->songText();
    if (isPreviewOnScreen() && m_previewingCtl->lrcText() != text) {
        m_previewingCtl->notifyLrcTextUpdated(text);
    }
}
