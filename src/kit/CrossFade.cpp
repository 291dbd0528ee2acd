// SPDX-License-Identifier: MIT
#include "kit/CrossFade.h"

#include "kit/Theme.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QVariantAnimation>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

#include <utility>

namespace kit {

namespace {

/// The view as it will look: what has just come in has not been laid out by its contents yet.
QPixmap pictureOf(QWidget &view)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    return view.grab();
}

} // namespace

bool CrossFade::isWanted(const QWidget *view)
{
    return view->isVisible()
        && view->style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, view) > 0;
}

void CrossFade::start(QWidget *newView, const QPixmap &oldPicture, std::function<void()> finished)
{
    // Owned by the parent of the view; lets itself go at the end.
    auto *const fade = new CrossFade(newView, oldPicture, std::move(finished));
    auto *const animation = new QVariantAnimation(fade);
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    animation->setDuration(kSlowMillis);
    connect(animation, &QVariantAnimation::valueChanged, fade,
        [fade](const QVariant &value) { fade->setProgress(value.toReal()); });
    connect(animation, &QVariantAnimation::finished, fade, &CrossFade::finish);
    fade->show();
    animation->start();
}

CrossFade::CrossFade(QWidget *newView, const QPixmap &oldPicture, std::function<void()> finished)
    : QWidget(newView->parentWidget()), m_newView(newView), m_oldPicture(oldPicture),
      m_newPicture(pictureOf(*newView)), m_finished(std::move(finished))
{
    setObjectName(QStringLiteral("crossFade"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::NoFocus);
    setGeometry(newView->geometry());
    newView->installEventFilter(this);
}

bool CrossFade::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_newView) {
        switch (event->type()) {
        case QEvent::Resize:
        case QEvent::Move:
        case QEvent::Hide:
        case QEvent::ParentChange:
            finish();
            break;
        default:
            break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void CrossFade::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_newPicture);
    painter.setOpacity(1.0 - m_progress);
    painter.drawPixmap(0, 0, m_oldPicture);
}

void CrossFade::setProgress(qreal progress)
{
    m_progress = progress;
    update();
}

void CrossFade::finish()
{
    if (std::exchange(m_done, true))
        return;
    hide();
    deleteLater();
    if (const auto finished = std::exchange(m_finished, nullptr))
        finished();
}

} // namespace kit
