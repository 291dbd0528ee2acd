// SPDX-License-Identifier: MIT
#include "host/StatusWork.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolButton>

namespace desk {

namespace {

constexpr int kBarWidth = 72;
constexpr int kBarHeight = 8;
constexpr int kSteps = 1000;

} // namespace

StatusWork::StatusWork(QMainWindow &window, const Words &words, const QString &buttonName)
    : m_window(window), m_panel(new QWidget(&window)), m_label(new QLabel(m_panel)),
      m_bar(new QProgressBar(m_panel))
{
    m_label->setTextFormat(Qt::PlainText);
    m_bar->setTextVisible(false);
    m_bar->setFixedSize(kBarWidth, kBarHeight);
    m_bar->setAccessibleName(words.name);
    auto *button = new QToolButton(m_panel);
    button->setObjectName(buttonName);
    button->setText(tr("Cancel (Esc)"));
    button->setAccessibleName(words.cancel);
    button->setToolTip(words.cancel);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, &StatusWork::cancelled);
    auto *layout = new QHBoxLayout(m_panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch(1);
    for (QWidget *part :
        {static_cast<QWidget *>(m_label), static_cast<QWidget *>(m_bar), static_cast<QWidget *>(button)})
        layout->addWidget(part);
    window.statusBar()->addPermanentWidget(m_panel);
    m_panel->hide();
    window.installEventFilter(this);
}

// Not a shortcut: it would compete with the others for this key. What reaches the window is what nobody uses,
// neither the cell that is being typed in nor the preview, which closes first.
bool StatusWork::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &m_window && event->type() == QEvent::KeyPress && isShown()
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        Q_EMIT cancelled();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

bool StatusWork::isShown() const
{
    return !m_panel->isHidden();
}

void StatusWork::show(const QString &text)
{
    m_label->setText(text);
    m_bar->setRange(0, 0);
    m_panel->show();
}

void StatusWork::setDone(double done)
{
    m_bar->setRange(0, kSteps);
    m_bar->setValue(int(done * kSteps));
}

void StatusWork::hide()
{
    m_panel->hide();
}

} // namespace desk
