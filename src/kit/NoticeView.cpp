// SPDX-License-Identifier: MIT
#include "kit/NoticeView.h"

#include "kit/Theme.h"

#include <QtCore/QEvent>
#include <QtCore/QTimer>
#include <QtCore/QVariantAnimation>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QStyle>

#include <algorithm>
#include <chrono>

namespace {

using namespace std::chrono_literals;

// To be noticed, and then to be read.
constexpr std::chrono::milliseconds kShortest = 4s;
constexpr std::chrono::milliseconds kPerCharacter = 60ms;
constexpr std::chrono::milliseconds kLongest = 12s;
constexpr int kWidest = 480;
constexpr int kTallest = 10'000;

QAccessibleInterface *makeAccessible(const QString & /*className*/, QObject *object)
{
    auto *const notice = qobject_cast<NoticeView *>(object);
    return notice != nullptr ? new QAccessibleWidget(notice, QAccessible::AlertMessage) : nullptr;
}

void installAccessible()
{
    static const bool installed = [] {
        QAccessible::installFactory(makeAccessible);
        return true;
    }();
    static_cast<void>(installed);
}

// Between words, and within one only where it has no room.
int textFlags(const QFontMetrics &metrics, const QString &text, int width)
{
    constexpr int kWords = Qt::AlignCenter | Qt::TextWordWrap;
    const bool isRoom = metrics.boundingRect(QRect(0, 0, width, kTallest), kWords, text).width() <= width;
    return isRoom ? kWords : Qt::AlignCenter | Qt::TextWrapAnywhere;
}

QMargins padding()
{
    return {kit::kSpacingLarge, kit::kSpacingSmall, kit::kSpacingLarge, kit::kSpacingSmall};
}

} // namespace

void NoticeView::show(QWidget *over, const QString &text)
{
    if (over == nullptr)
        return;
    NoticeView *notice = shownOver(over);
    if (text.isEmpty()) {
        if (notice != nullptr)
            notice->dismiss();
        return;
    }
    if (notice == nullptr)
        notice = new NoticeView(over);
    notice->setText(text);
}

QString NoticeView::currentText(const QWidget *over)
{
    const NoticeView *const notice = shownOver(over);
    return notice != nullptr ? notice->m_text : QString();
}

NoticeView *NoticeView::shownOver(const QWidget *over)
{
    if (over == nullptr)
        return nullptr;
    const auto notices = over->findChildren<NoticeView *>(QString(), Qt::FindDirectChildrenOnly);
    const auto shown = std::find_if(
        notices.begin(), notices.end(), [](const NoticeView *notice) { return !notice->m_isGone; });
    return shown != notices.end() ? *shown : nullptr;
}

NoticeView::NoticeView(QWidget *over)
    : QWidget(over), m_timer(new QTimer(this)), m_fade(new QVariantAnimation(this))
{
    installAccessible();
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    setFont(kit::textFont(font(), kit::TextSize::Body));
    m_timer->setSingleShot(true);
    connect(m_timer, &QTimer::timeout, this, &NoticeView::dismiss);
    m_fade->setStartValue(0.0);
    m_fade->setEndValue(1.0);
    m_fade->setDuration(kit::kQuickMillis);
    connect(m_fade, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    over->installEventFilter(this);
}

void NoticeView::setText(const QString &text)
{
    m_text = text;
    setAccessibleName(text);
    place();
    if (!isVisible())
        fadeIn();
    raise();
    show();
    update();
    m_timer->start(std::min<std::chrono::milliseconds>(kLongest, kShortest + kPerCharacter * text.size()));
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

// In the middle above the lower edge, as wide as its text and never wider than what it lies on.
void NoticeView::place()
{
    const QMargins inner = padding();
    const QRect whole = parentWidget()->rect();
    const QRect room = whole.marginsRemoved(
        {kit::kSpacingLarge, kit::kSpacingSmall, kit::kSpacingLarge, kit::kSpacingLarge});
    const int widest = std::max(1, std::min(room.width(), kWidest) - inner.left() - inner.right());
    const QRect text = fontMetrics().boundingRect(
        QRect(0, 0, widest, kTallest), textFlags(fontMetrics(), m_text, widest), m_text);
    QRect frame(QPoint(), text.size().grownBy(inner));
    frame.setHeight(std::min(frame.height(), room.height()));
    frame.moveCenter(room.center());
    frame.moveBottom(room.bottom());
    setGeometry(frame);
}

void NoticeView::fadeIn()
{
    if (style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0)
        m_fade->start();
}

void NoticeView::dismiss()
{
    m_isGone = true;
    m_timer->stop();
    hide();
    deleteLater();
}

bool NoticeView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        place();
    return QWidget::eventFilter(watched, event);
}

void NoticeView::paintEvent(QPaintEvent * /*event*/)
{
    const kit::Theme theme(parentWidget());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_fade->state() == QAbstractAnimation::Running)
        painter.setOpacity(m_fade->currentValue().toReal());
    painter.setPen(QPen(theme.waveform, 1.0));
    painter.setBrush(theme.chip);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kit::kRadius, kit::kRadius);
    painter.setPen(kit::readableOn(theme.chip, theme.text, 4.5));
    const QRect text = rect().marginsRemoved(padding());
    painter.drawText(text, textFlags(fontMetrics(), m_text, text.width()), m_text);
}

void NoticeView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange && !m_text.isNull())
        place();
}

void NoticeView::enterEvent(QEnterEvent *event)
{
    QWidget::enterEvent(event);
    m_timer->stop();
}

void NoticeView::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    if (!m_isGone)
        m_timer->start(kShortest);
}

void NoticeView::mousePressEvent(QMouseEvent *event)
{
    event->accept();
}

void NoticeView::mouseReleaseEvent(QMouseEvent *event)
{
    if (rect().contains(event->position().toPoint()))
        dismiss();
}
