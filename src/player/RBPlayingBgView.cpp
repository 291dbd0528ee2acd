// SPDX-License-Identifier: MIT
#include "player/RBPlayingBgView.h"

#include "kit/DroppedFiles.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::array kExtensions{"mp3", "m4a", "ogg", "oga", "aiff", "wma", "wav", "flac", "ape", "asf"};

const QColor kTopEdge = QColor::fromRgbF(0.0F, 0.0F, 0.0F, 0.15F);
const QColor kHighlight(117, 187, 231);

} // namespace

RBPlayingBgView::RBPlayingBgView(QWidget *parent) : MyStyledView(parent)
{
    setDropEnabled(true);
    setHighlighted(false);
}

void RBPlayingBgView::setDropEnabled(bool enabled)
{
    m_dropEnabled = enabled;
    setAcceptDrops(enabled);
}

QString RBPlayingBgView::getDraggingFilePath(const QMimeData *dragged) const
{
    return kit::droppedFiles(dragged).value(0);
}

bool RBPlayingBgView::isDraggingSupported(const QMimeData *dragged) const
{
    // A folder's path may end in a slash; its name is before that.
    const QString extension = QFileInfo(QDir::cleanPath(getDraggingFilePath(dragged))).suffix();
    return std::any_of(kExtensions.begin(), kExtensions.end(), [&extension](const char *accepted) {
        return extension.contains(QLatin1String(accepted), Qt::CaseInsensitive);
    });
}

void RBPlayingBgView::setHighlighted(bool highlighted)
{
    setTopEdgeColor(kTopEdge);
    if (highlighted)
        setBackgroundColor(kHighlight);
    else
        setBackgroundColor(QPalette::Button);
    matchTexts(highlighted);
}

// The blue is the same in a dark scheme, whose light texts nobody could read on it.
void RBPlayingBgView::matchTexts(bool highlighted)
{
    if (highlighted && !m_calmPalette) {
        m_calmPalette = palette();
        QPalette colors = palette();
        for (const auto role : {QPalette::Base, QPalette::Window})
            colors.setColor(role, kHighlight);
        for (const auto role : {QPalette::Text, QPalette::WindowText})
            colors.setColor(role, Qt::black);
        setPalette(colors);
    } else if (!highlighted && m_calmPalette) {
        setPalette(*std::exchange(m_calmPalette, std::nullopt));
    }
}

void RBPlayingBgView::dragEnterEvent(QDragEnterEvent *event)
{
    if (!isDraggingSupported(event->mimeData())) {
        event->ignore();
        watchRefusedDrag();
        return;
    }
    setHighlighted(true);
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void RBPlayingBgView::dragLeaveEvent(QDragLeaveEvent *event)
{
    MyStyledView::dragLeaveEvent(event);
    setHighlighted(false);
}

void RBPlayingBgView::dropEvent(QDropEvent *event)
{
    const bool supported = isDraggingSupported(event->mimeData());
    if (supported) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    } else {
        event->ignore();
    }
    const auto receiver = delegate();
    const QPointer<RBPlayingBgView> self(this);
    if (supported && receiver != nullptr)
        receiver->plyingBgView_acceptDrop(this, getDraggingFilePath(event->mimeData()));
    if (self != nullptr)
        setHighlighted(false);
}

// A drag that was refused is not told to the widget any more, not even that it has left. The
// window still hears of it.
void RBPlayingBgView::watchRefusedDrag()
{
    if (m_refusedDragWindow != nullptr)
        m_refusedDragWindow->removeEventFilter(this);
    m_refusedDragWindow = window()->windowHandle();
    if (m_refusedDragWindow != nullptr)
        m_refusedDragWindow->installEventFilter(this);
}

bool RBPlayingBgView::endsRefusedDrag(const QEvent *event) const
{
    if (event->type() == QEvent::DragLeave || event->type() == QEvent::Drop)
        return true;
    if (event->type() != QEvent::DragMove)
        return false;
    const auto *const move = static_cast<const QDragMoveEvent *>(event);
    return !rect().contains(mapFrom(window(), move->position().toPoint()));
}

bool RBPlayingBgView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_refusedDragWindow && endsRefusedDrag(event)) {
        m_refusedDragWindow->removeEventFilter(this);
        m_refusedDragWindow.clear();
        setHighlighted(false);
    }
    return MyStyledView::eventFilter(watched, event);
}
