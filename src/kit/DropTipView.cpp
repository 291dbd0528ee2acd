// SPDX-License-Identifier: MIT
#include "kit/DropTipView.h"

#include "kit/AccentButton.h"
#include "kit/DroppedFiles.h"
#include "kit/FormLoader.h"
#include "kit/Theme.h"

#include <QtCore/QEvent>
#include <QtCore/QMetaMethod>
#include <QtGui/QDropEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

// A button that nobody listens to is not shown.
class ButtonOnceConnected : public QPushButton
{
public:
    explicit ButtonOnceConnected(QWidget *parent) : QPushButton(parent) { hide(); }

protected:
    void connectNotify(const QMetaMethod &signal) override
    {
        QPushButton::connectNotify(signal);
        if (signal == QMetaMethod::fromSignal(&QPushButton::clicked))
            show();
    }
};

} // namespace

DropTipView::DropTipView(QWidget *parent)
    : QWidget(parent), m_prompt(new QLabel(this)), m_btnFunction(new AccentButton(this)),
      m_btnHelp(new ButtonOnceConnected(this))
{
    setAcceptDrops(true);
    buildSentence();
    applyTheme();
}

void DropTipView::buildSentence()
{
    m_prompt->setTextFormat(Qt::PlainText);
    m_prompt->setAlignment(Qt::AlignCenter);
    m_prompt->setWordWrap(false);
    m_prompt->setBuddy(m_btnFunction);
    m_btnHelp->setText(kit::FormLoader::translated(QStringLiteral("Help")));
    m_btnHelp->setToolTip(kit::FormLoader::translated(QStringLiteral("Open the help page")));
    m_btnHelp->setFlat(true);
    m_btnHelp->setCursor(Qt::PointingHandCursor);

    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(
        kit::kSpacingHuge * 2, kit::kSpacingHuge, kit::kSpacingHuge * 2, kit::kSpacingHuge);
    column->addStretch(1);
    m_sentence = new QHBoxLayout;
    m_sentence->setSpacing(kit::kSpacingSmall);
    m_sentence->addStretch(1);
    m_sentence->addWidget(m_prompt, 0, Qt::AlignCenter);
    m_sentence->addWidget(m_btnFunction, 0, Qt::AlignCenter);
    m_sentence->addStretch(1);
    column->addLayout(m_sentence);
    column->addSpacing(kit::kSpacingLarge);
    column->addWidget(m_btnHelp, 0, Qt::AlignCenter);
    column->addStretch(1);
}

void DropTipView::setPrompt(const QString &prompt)
{
    m_prompt->setText(prompt);
    setAccessibleName(prompt);
}

QString DropTipView::prompt() const
{
    return m_prompt->text();
}

void DropTipView::dragEnterEvent(QDragEnterEvent *event)
{
    if (m_delegate.expired() || kit::droppedFiles(event->mimeData()).isEmpty()) {
        event->ignore();
        return;
    }
    setHighlighted(true);
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void DropTipView::dragLeaveEvent(QDragLeaveEvent * /*event*/)
{
    setHighlighted(false);
}

void DropTipView::dropEvent(QDropEvent *event)
{
    setHighlighted(false);
    const QStringList paths = kit::droppedFiles(event->mimeData());
    const auto receiver = delegate();
    if (receiver == nullptr || paths.isEmpty()) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    receiver->dropView_didDropFiles(this, paths);
}

void DropTipView::setHighlighted(bool highlighted)
{
    m_highlighted = highlighted;
    update();
}

void DropTipView::paintEvent(QPaintEvent * /*event*/)
{
    const kit::Theme theme(this);
    QPainter painter(this);
    painter.fillRect(rect(), theme.panel);
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(m_highlighted ? theme.accent : theme.waveform, m_highlighted ? 2.0 : 1.5);
    pen.setDashPattern({4.0, 4.0});
    painter.setPen(pen);
    painter.setBrush(m_highlighted ? QBrush(theme.selection) : QBrush(Qt::NoBrush));
    const QRectF outline = QRectF(rect()).adjusted(
        kit::kSpacingLarge, kit::kSpacingLarge, -kit::kSpacingLarge, -kit::kSpacingLarge);
    painter.drawRoundedRect(outline, kit::kRadiusLarge, kit::kRadiusLarge);
}

void DropTipView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const QMargins margins = layout()->contentsMargins();
    const int sentence = margins.left() + m_prompt->sizeHint().width() + m_sentence->spacing() * 3
        + m_btnFunction->sizeHint().width() + margins.right();
    m_sentence->setDirection(width() < sentence ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

void DropTipView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyTheme();
}

void DropTipView::applyTheme()
{
    const kit::Theme theme(this);
    QPalette quiet;
    quiet.setColor(QPalette::WindowText, theme.quietText);
    quiet.setColor(QPalette::ButtonText, theme.quietText);
    m_btnHelp->setPalette(quiet);
    QFont link = kit::textFont(font(), kit::TextSize::Small);
    link.setUnderline(true);
    m_btnHelp->setFont(link);
    QPalette plain;
    plain.setColor(QPalette::WindowText, theme.text);
    m_prompt->setPalette(plain);
    m_prompt->setFont(kit::textFont(font(), kit::TextSize::Body));
    update();
}
