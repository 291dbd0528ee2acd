// SPDX-License-Identifier: MIT
#include "preview/RBPreviewViewController.h"

#include "kit/AfterDelay.h"
#include "kit/AutoResize.h"
#include "kit/FormLoader.h"
#include "kit/NotificationCenter.h"
#include "preview/CoverShadow.h"
#include "preview/PlayKey.h"
#include "preview/PreviewFolding.h"
#include "preview/RBPreviewBgView.h"
#include "preview/SongText.h"
#include "resources/Localized.h"
#include "resources/Resources.h"
#include "resources/TQLrcUtils.h"
#include "shell/contracts/EditorContainer.h"
#include "shell/contracts/TQLRCNotifications.h"
#include "shell/contracts/WXEAudioFile.h"
#include "views/SmallViews.h"

#include <QtCore/QLoggingCategory>

#include <chrono>
#include <string_view>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcPreview, "tqlrceditor.preview")

using namespace std::chrono_literals;

// After the switch of the views, so that there is a window to ask.
constexpr auto kFocusDelay = 300ms;

const QColor kGround = QColor::fromRgbF(0.15F, 0.15F, 0.15F);
const QColor kText = QColor(0xe8, 0xe8, 0xe8);

enum Segment { Left, Centre, Right };

// Dark whatever the desktop is: everything on the ground takes its colours from this.
QPalette darkPalette()
{
    QPalette palette;
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
        palette.setColor(role, kGround);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, kText);
    return palette;
}

views::TextRange rangeOf(const RBPreviewLine &line)
{
    return {static_cast<int>(line.txtRg.location), static_cast<int>(line.txtRg.length)};
}

std::string_view bytes(const QByteArray &text)
{
    return {text.constData(), static_cast<std::size_t>(text.size())};
}

std::shared_ptr<views::LyricText> shown(std::shared_ptr<const lyrics::PreviewText> text)
{
    return std::make_shared<preview::SongText>(std::move(text));
}

} // namespace

std::shared_ptr<RBPreviewViewController> RBPreviewViewController::init()
{
    return std::shared_ptr<RBPreviewViewController>(new RBPreviewViewController);
}

RBPreviewViewController::RBPreviewViewController()
{
    resources::ensureLoaded();
    views::registerSmallViews();
    kit::FormLoader::registerWidget<RBPreviewBgView>("RBPreviewBgView");
}

RBPreviewViewController::~RBPreviewViewController()
{
    qCInfo(lcPreview) << "dealloced...";
    kit::NotificationCenter::defaultCenter().removeObserver(this);
}

void RBPreviewViewController::setParentVC(const std::weak_ptr<EditorContainer> &parent)
{
    m_parentVC = parent;
}

bool RBPreviewViewController::connectOutlets()
{
    // Every missing one is said, not the first alone.
    bool complete = outlet(m_imageview, "imageview");
    complete = outlet(m_lblTitle, "lblTitle") && complete;
    complete = outlet(m_lblArtist, "lblArtist") && complete;
    complete = outlet(m_lblAlbum, "lblAlbum") && complete;
    complete = outlet(m_textView, "textView") && complete;
    complete = outlet(m_tagSwitch, "tagSwitch") && complete;
    complete = outlet(m_segAlign, "segAlign") && complete;
    complete = outlet(m_btnOffset, "btnOffset") && complete;
    m_segAligen = view()->findChild<kit::SegmentedControl *>(QStringLiteral("segAligen"));
    return outlet(m_btnClose, "btnClose") && complete;
}

void RBPreviewViewController::viewDidLoad()
{
    ViewController::viewDidLoad();
    QWidget *const root = view();
    kit::AutoResize::install(root);
    root->setPalette(darkPalette());
    if (auto *const ground = qobject_cast<RBPreviewBgView *>(root))
        ground->setBackgroundColor(kGround);
    m_shadow = new preview::CoverShadow(m_imageview, root);
    m_folding = new preview::PreviewFolding(root);
    connect(
        new preview::PlayKey(root), &preview::PlayKey::pressed, this, &RBPreviewViewController::playOrPause);
    wireControls();
    refreshAlignImgs();
    kit::NotificationCenter::defaultCenter().observe(TQLRCEditorAdjustTimeFinishNotification, this,
        [this](const QVariant &object) { adjustTimeFinished(object); });
    updateSongTextWithSwitchChanged();
    showItem();
}

void RBPreviewViewController::wireControls()
{
    m_btnClose->setIcon(TQLrcUtils::iconNamed(QStringLiteral("close"), kText));
    m_btnClose->setShortcut(Qt::Key_Escape);
    m_btnClose->setToolTip(QStringLiteral("%1 (Esc)").arg(m_btnClose->toolTip()));
    connectAction(m_btnClose, [this](QObject *sender) { closeClicked(sender); });
    connectAction(m_btnOffset, [this](QObject *sender) { offsetClick(sender); });
    connectAction(m_tagSwitch, [this](QObject *sender) { switchClick(sender); });
    m_segAlign->setLabel_forSegment(localized(QStringLiteral("Align left")), Left);
    m_segAlign->setLabel_forSegment(localized(QStringLiteral("Centre")), Centre);
    m_segAlign->setLabel_forSegment(localized(QStringLiteral("Align right")), Right);
    m_segAlign->setSelectedSegment(Centre);
    connect(m_segAlign, &kit::SegmentedControl::segmentChosen, this, [this] { aligenClick(m_segAlign); });
}

void RBPreviewViewController::viewWillLayout()
{
    ViewController::viewWillLayout();
    if (m_folding != nullptr)
        m_folding->fit(view()->width());
}

void RBPreviewViewController::refreshAlignImgs()
{
    // In the colour of the preview's text: the desktop's is that of another ground.
    const auto image
        = [](const char *name) { return TQLrcUtils::iconNamed(QString::fromLatin1(name), kText); };
    if (m_segAlign != nullptr) {
        m_segAlign->setImage_forSegment(image("text_align_left"), Left);
        m_segAlign->setImage_forSegment(image("text_align_center"), Centre);
        m_segAlign->setImage_forSegment(image("text_align_right"), Right);
    }
    if (m_btnOffset != nullptr)
        m_btnOffset->setIcon(image("credit-offset"));
}

void RBPreviewViewController::flushWithAudio_lrcText(
    const std::shared_ptr<WXEAudioFile> &item, const QByteArray &lrcText)
{
    m_audioitem = item;
    m_lrcText = lrcText;
    m_song = std::make_shared<RBPreviewSong>();
    m_isSongBuilt = false;
    updateSongTextWithSwitchChanged();
    showItem();
    resetFirstResponder();
    kit::afterDelay(kFocusDelay, [weak = weak_from_this()] {
        if (const auto alive = weak.lock())
            static_cast<RBPreviewViewController &>(*alive).showWholeText();
    });
}

std::shared_ptr<RBPreviewSong> RBPreviewViewController::song() const
{
    if (m_song != nullptr && !m_isSongBuilt)
        buildSong();
    return m_song;
}

void RBPreviewViewController::buildSong() const
{
    m_song->buildWithLrcText(bytes(m_lrcText));
    m_isSongBuilt = true;
}

void RBPreviewViewController::showItem()
{
    if (m_imageview == nullptr)
        return;
    const QImage cover = m_audioitem != nullptr ? m_audioitem->frontCoverImg() : QImage();
    m_imageview->setImage(cover);
    m_shadow->setVisible(!cover.isNull());
    m_lblTitle->setText(m_audioitem != nullptr ? m_audioitem->title() : QString());
    m_lblArtist->setText(m_audioitem != nullptr ? m_audioitem->artist() : QString());
    m_lblAlbum->setText(m_audioitem != nullptr ? m_audioitem->album() : QString());
}

void RBPreviewViewController::updateSongTextWithSwitchChanged()
{
    if (m_textView == nullptr || m_song == nullptr)
        return;
    const bool hasTag = m_tagSwitch->isChecked();
    const auto beginning = m_isSongBuilt ? nullptr : RBPreviewSong::beginningOf(bytes(m_lrcText), hasTag);
    m_isWholeTextShown = beginning == nullptr;
    m_textView->setText(shown(m_isWholeTextShown ? song()->textWithHasTag(hasTag) : beginning));
}

// The whole of a long text would come frames after what can be seen of it.
void RBPreviewViewController::showWholeText()
{
    if (m_textView == nullptr || m_song == nullptr || m_isWholeTextShown)
        return;
    m_isWholeTextShown = true;
    m_textView->continueWith(shown(song()->textWithHasTag(m_tagSwitch->isChecked())));
}

void RBPreviewViewController::notifyPlayProgress(double seconds)
{
    if (m_textView == nullptr || m_song == nullptr)
        return;
    showWholeText();
    const auto current = m_song->currentLineIndex(seconds);
    if (!current)
        return;
    const views::TextRange range = rangeOf(m_song->aryLines()[*current]);
    if (m_textView->selectedRange() != range) {
        m_textView->setSelectedRange(range);
        m_textView->scrollSelectionIntoView();
    }
}

void RBPreviewViewController::notifyLrcTextUpdated(const QByteArray &lrcText)
{
    if (m_song == nullptr)
        return;
    m_lrcText = lrcText;
    buildSong();
    updateSongTextWithSwitchChanged();
}

void RBPreviewViewController::adjustTimeFinished(const QVariant &object)
{
    if (isInWindow())
        notifyLrcTextUpdated(object.toByteArray());
}

bool RBPreviewViewController::isInWindow() const
{
    const QWidget *const root = viewIfLoaded();
    return root != nullptr && (root->parentWidget() != nullptr || root->isVisible());
}

void RBPreviewViewController::resetFirstResponder()
{
    kit::afterDelay(kFocusDelay, [self = weak_from_this().lock(), this] {
        if (m_textView != nullptr && isInWindow()) {
            // It refuses, and so nobody has the keyboard: the line editor, out of sight, has it no more.
            m_textView->setFocus();
            m_textView->viewport()->update();
        }
    });
}

void RBPreviewViewController::switchClick(QObject * /*sender*/)
{
    updateSongTextWithSwitchChanged();
}

void RBPreviewViewController::aligenClick(QObject *sender)
{
    const auto *const control = qobject_cast<kit::SegmentedControl *>(sender);
    if (control == nullptr || m_textView == nullptr)
        return;
    switch (control->selectedSegment()) {
    case Left:
        m_textView->setTextAlignment(Qt::AlignLeft);
        break;
    case Centre:
        m_textView->setTextAlignment(Qt::AlignHCenter);
        break;
    case Right:
        m_textView->setTextAlignment(Qt::AlignRight);
        break;
    default:
        break;
    }
}

void RBPreviewViewController::closeClicked(QObject *sender)
{
    if (const auto container = parentVC())
        container->backFromPreview(sender);
}

void RBPreviewViewController::playOrPause()
{
    if (const auto container = parentVC())
        container->pressPlayPause(view());
}

void RBPreviewViewController::offsetClick(QObject *sender)
{
    if (const auto container = parentVC())
        container->previewOffsetClicked(sender);
}
