// SPDX-License-Identifier: MIT
#include "preview/RBPreviewViewController.h"

#include "kit/AutoResize.h"
#include "kit/FormLoader.h"
#include "lyrics/RBPreviewSong.h"
#include "preview/RBPreviewBgView.h"
#include "resources/Resources.h"
#include "resources/TQLrcUtils.h"
#include "shell/contracts/EditorContainer.h"
#include "shell/contracts/WXEAudioFile.h"
#include "views/SmallViews.h"

#include <QtCore/QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(lcPreview, "tqlrceditor.preview")

const QColor kGround = QColor::fromRgbF(0.15F, 0.15F, 0.15F);
const QColor kText = QColor(0xe8, 0xe8, 0xe8);

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

QString plainText(const QByteArray &lrcText)
{
    RBPreviewSong song;
    song.buildWithLrcText({lrcText.constData(), static_cast<std::size_t>(lrcText.size())});
    return QString::fromStdU16String(song.previewSongTextWithHasTag(true));
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
    m_btnClose->setIcon(TQLrcUtils::iconNamed(QStringLiteral("close")));
    connectAction(m_btnClose, [this](QObject *sender) { closeClicked(sender); });
    showItem();
}

void RBPreviewViewController::flushWithAudio_lrcText(
    const std::shared_ptr<WXEAudioFile> &item, const QByteArray &lrcText)
{
    m_audioitem = item;
    m_lrcText = lrcText;
    if (isViewLoaded())
        showItem();
}

void RBPreviewViewController::showItem()
{
    m_textView->setPlainText(plainText(m_lrcText));
    m_imageview->setImage(m_audioitem != nullptr ? m_audioitem->frontCoverImg() : QImage());
    m_lblTitle->setText(m_audioitem != nullptr ? m_audioitem->title() : QString());
    m_lblArtist->setText(m_audioitem != nullptr ? m_audioitem->artist() : QString());
    m_lblAlbum->setText(m_audioitem != nullptr ? m_audioitem->album() : QString());
}

void RBPreviewViewController::notifyPlayProgress(double /*seconds*/)
{ }

void RBPreviewViewController::closeClicked(QObject *sender)
{
    if (const auto container = parentVC())
        container->backFromPreview(sender);
}
