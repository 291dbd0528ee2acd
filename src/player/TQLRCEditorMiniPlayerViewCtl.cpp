// SPDX-License-Identifier: MIT
#include "player/TQLRCEditorMiniPlayerViewCtl.h"

#include "kit/FormLoader.h"
#include "lyrics/Millis.h"
#include "lyrics/RBUtils.h"
#include "resources/Localized.h"
#include "resources/Resources.h"
#include "resources/TQLrcUtils.h"
#include "shell/contracts/EditorContainer.h"
#include "shell/contracts/TQAudioPlayerProtocol.h"
#include "shell/contracts/TQLRCEditorConfig.h"
#include "shell/contracts/TQLRCEditorViewCtlDelegate.h"
#include "shell/contracts/WXEAudioFile.h"
#include "shell/contracts/WXEAudioFileMgr.h"

#include <QtCore/QStringList>
#include <QtCore/QVarLengthArray>

#include <string>
#include <utility>

std::shared_ptr<TQLRCEditorMiniPlayerViewCtl> TQLRCEditorMiniPlayerViewCtl::initWithPlayer(
    std::shared_ptr<TQAudioPlayerProtocol> player)
{
    const std::shared_ptr<TQLRCEditorMiniPlayerViewCtl> strip(
        new TQLRCEditorMiniPlayerViewCtl(std::move(player)));
    strip->rememberSelf();
    return strip;
}

std::shared_ptr<TQLRCEditorMiniPlayerViewCtl> TQLRCEditorMiniPlayerViewCtl::init()
{
    return initWithPlayer(nullptr);
}

TQLRCEditorMiniPlayerViewCtl::TQLRCEditorMiniPlayerViewCtl(std::shared_ptr<TQAudioPlayerProtocol> player)
    : m_player(std::move(player))
{
    resources::ensureLoaded();
    kit::FormLoader::registerWidget<RBPlayingBgView>("RBPlayingBgView");
}

TQLRCEditorMiniPlayerViewCtl::~TQLRCEditorMiniPlayerViewCtl()
{
    if (m_player == nullptr)
        return;
    m_player->pause();
    m_player->removeObserver(m_asObserver);
}

void TQLRCEditorMiniPlayerViewCtl::rememberSelf()
{
    m_asObserver = std::static_pointer_cast<TQLRCEditorMiniPlayerViewCtl>(shared_from_this());
}

void TQLRCEditorMiniPlayerViewCtl::setDelegate(const std::weak_ptr<TQLRCEditorViewCtlDelegate> &delegate)
{
    m_delegate = delegate;
}

void TQLRCEditorMiniPlayerViewCtl::setParentVC(const std::weak_ptr<EditorContainer> &parent)
{
    m_parentVC = parent;
}

void TQLRCEditorMiniPlayerViewCtl::setMcPlayer(std::shared_ptr<TQAudioPlayerProtocol> player)
{
    m_player = std::move(player);
}

bool TQLRCEditorMiniPlayerViewCtl::connectOutlets()
{
    // Every missing one is said, not the first alone.
    bool complete = outlet(m_playerBgView, "playerBgView");
    complete = outlet(m_lblAudioTitle, "lblAudioTitle") && complete;
    complete = outlet(m_albumImgView, "albumImgView") && complete;
    complete = outlet(m_btnPlay, "btnPlay") && complete;
    complete = outlet(m_prgSlider, "prgSlider") && complete;
    return outlet(m_lblPlayerTime, "lblPlayerTime") && complete;
}

void TQLRCEditorMiniPlayerViewCtl::viewDidLoad()
{
    ViewController::viewDidLoad();
    rememberSelf();
    const auto self = std::static_pointer_cast<TQLRCEditorMiniPlayerViewCtl>(shared_from_this());
    m_playerBgView->setDropEnabled(gEditorConfig != nullptr && gEditorConfig->supportDragAudioInto());
    m_playerBgView->setDelegate(self);
    m_prgSlider->setDelegate(self);
    m_prgSlider->setTimeText([weak = std::weak_ptr(self)](double seconds) {
        const auto strip = weak.lock();
        return strip != nullptr ? strip->getTimeStr(seconds) : QString();
    });
    m_playerBgView->setBackgroundColor(QPalette::Base);
    connectAction(m_btnPlay, [this](QObject *sender) { PlayPauseClicked(sender); });
    updatePlayPauseUI();
    showItem();
    showTimes(0.0, 0.0);
    if (m_player != nullptr)
        m_player->registObserver(m_asObserver);
}

void TQLRCEditorMiniPlayerViewCtl::flushWithAudioItem(const std::shared_ptr<WXEAudioFile> &item)
{
    m_audioFile = item;
    if (isViewLoaded())
        showItem();
}

void TQLRCEditorMiniPlayerViewCtl::showItem()
{
    const bool hasItem = m_audioFile != nullptr;
    m_lblAudioTitle->setText(
        hasItem ? getPlayTitle(m_audioFile) : localized(QStringLiteral("Drag Audio File Here!")));
    m_albumImgView->setImage(hasItem ? m_audioFile->frontCoverImg() : QImage());
    m_prgSlider->setEnabled(hasItem);
    if (hasItem)
        m_prgSlider->setDLength(m_audioFile->duration());
    requestPeaks();
}

void TQLRCEditorMiniPlayerViewCtl::requestPeaks()
{
    const auto item = m_audioFile;
    // The same item is shown again when the host has learnt better of its title or length.
    if (item != nullptr && m_peaksItem.lock() == item)
        return;
    m_peakRequest.reset();
    m_peaksItem = item;
    m_prgSlider->setPeaks({}, 0.0);
    const auto provider = item != nullptr ? PeakProvider::provider() : nullptr;
    if (provider == nullptr)
        return;
    m_peakRequest = provider->requestPeaks(
        item, [slider = m_prgSlider](const std::shared_ptr<const WaveformPeaks> &peaks) {
            if (slider != nullptr)
                slider->setPeaks(peaks->levels, peaks->secondsPerLevel);
        });
}

void TQLRCEditorMiniPlayerViewCtl::showTimeTags(
    const std::vector<double> &all, const std::vector<double> &selected)
{
    if (m_prgSlider == nullptr)
        return;
    m_prgSlider->setTicks(all);
    m_prgSlider->setEmphasisedTicks(selected);
}

void TQLRCEditorMiniPlayerViewCtl::showTimes(double seconds, double length)
{
    if (m_lblPlayerTime == nullptr)
        return;
    // Many times a second, and mostly with the same figures.
    QVarLengthArray<char, 64> figures;
    for (const double time : {seconds, length}) {
        if (!figures.isEmpty())
            figures.append('/');
        const std::string text = RBUtils::getTimeIntervalMMSSMSStr(lyrics::millisFromSeconds(time));
        figures.append(text.data(), static_cast<qsizetype>(text.size()));
    }
    m_lblPlayerTime->setFigures(QLatin1String(figures.data(), figures.size()));
}

void TQLRCEditorMiniPlayerViewCtl::updatePlayerProgress(double seconds)
{
    showTimes(seconds, m_player != nullptr ? m_player->duration() : 0.0);
    if (m_prgSlider != nullptr)
        m_prgSlider->setDCurValue(seconds);
}

void TQLRCEditorMiniPlayerViewCtl::PlayPauseClicked(QObject * /*sender*/)
{
    if (const auto host = delegate())
        host->lrcEditorPlayAudioFile(std::shared_ptr<WXEAudioFile>(m_audioFile));
}

void TQLRCEditorMiniPlayerViewCtl::updatePlayPauseUI()
{
    if (m_btnPlay == nullptr)
        return;
    const bool plays = m_player != nullptr && m_player->isPlaying();
    m_btnPlay->setIcon(TQLrcUtils::iconNamed(plays ? QStringLiteral("pause") : QStringLiteral("play")));
    m_btnPlay->setAccessibleName(
        plays ? localized(QStringLiteral("Pause")) : localized(QStringLiteral("Play")));
}

bool TQLRCEditorMiniPlayerViewCtl::isPlaying() const
{
    return m_player != nullptr && m_player->isPlaying() && m_player->playingMusic() == m_audioFile;
}

bool TQLRCEditorMiniPlayerViewCtl::isPlayingCurrent() const
{
    const auto current = m_player != nullptr ? m_player->playingMusic() : nullptr;
    return current != nullptr && current == m_audioFile;
}

QString TQLRCEditorMiniPlayerViewCtl::getPlayTitle(const std::shared_ptr<WXEAudioFile> &item) const
{
    if (item == nullptr)
        return QStringLiteral("");
    QStringList fields{item->title(), item->artist(), item->album()};
    fields.removeAll(QString());
    return fields.isEmpty() ? QStringLiteral("") : fields.join(QStringLiteral(" - "));
}

QString TQLRCEditorMiniPlayerViewCtl::getTimeStr(double seconds) const
{
    return QString::fromStdString(RBUtils::getTimeIntervalMMSSMSStr(lyrics::millisFromSeconds(seconds)));
}

void TQLRCEditorMiniPlayerViewCtl::sliderView_beginDragAt(ProgressSliderView * /*slider*/, double /*seconds*/)
{
    if (isPlaying())
        m_player->pause();
}

void TQLRCEditorMiniPlayerViewCtl::sliderView_didChangeValue(ProgressSliderView * /*slider*/, double seconds)
{
    showTimes(seconds, m_audioFile != nullptr ? m_audioFile->duration() : 0.0);
}

void TQLRCEditorMiniPlayerViewCtl::sliderView_endDragAt(ProgressSliderView * /*slider*/, double seconds)
{
    if (m_player == nullptr)
        return;
    m_player->seek(seconds);
    m_player->lightPlay();
}

void TQLRCEditorMiniPlayerViewCtl::plyingBgView_acceptDrop(RBPlayingBgView * /*view*/, const QString &path)
{
    const auto item = WXEAudioFileMgr::createAudioFileWithPath_dumpImmediately(path, true);
    if (const auto container = parentVC())
        container->flushWithAudioItem(item);
}

void TQLRCEditorMiniPlayerViewCtl::audioPlayer_playStateChanged(
    TQAudioPlayerProtocol * /*player*/, bool /*playing*/)
{
    updatePlayPauseUI();
}
