// SPDX-License-Identifier: MIT
#include "host/DeskSearch.h"

#include "shell/contracts/TQInterfaceConfig.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolButton>

#include <utility>

namespace desk {

namespace {

constexpr qsizetype kShownCharacters = 40;
constexpr int kBarWidth = 72;
constexpr int kBarHeight = 8;

// One short line, whatever a tag holds; its writing direction stays its own.
QString shownTitle(const QString &title)
{
    QString shown;
    for (const QChar character : title.simplified()) {
        const auto category = character.category();
        if (category != QChar::Other_Control && category != QChar::Other_Format) {
            shown += character;
        }
    }
    if (shown.size() > kShownCharacters) {
        shown.truncate(
            shown.at(kShownCharacters - 1).isHighSurrogate() ? kShownCharacters - 1 : kShownCharacters);
        shown += QChar(0x2026);
    }
    return QChar(0x2068) + shown + QChar(0x2069);
}

} // namespace

class DeskSearch::Bridge final : public TQInterfaceBridge
{
public:
    explicit Bridge(std::shared_ptr<LyricSearch> service) : m_service(std::move(service)) { }
    std::shared_ptr<TQLrcDownloadInterface> lrcDownloadInterface() const override { return m_service; }

private:
    std::shared_ptr<LyricSearch> m_service;
};

DeskSearch::DeskSearch(
    QMainWindow &window, const LyricSearch::Settings &settings, std::function<LyricSearch::SongFacts()> facts)
    : m_window(window), m_service(std::make_shared<LyricSearch>(settings)),
      m_bridge(std::make_shared<Bridge>(m_service))
{
    m_service->setSongFacts(std::move(facts));
    buildStatus();
    connect(m_service.get(), &LyricSearch::started, this, &DeskSearch::showSearching);
    connect(m_service.get(), &LyricSearch::finished, this, &DeskSearch::showOutcome);
    TQInterfaceConfig::setBridge(std::weak_ptr<TQInterfaceBridge>(m_bridge));
}

DeskSearch::~DeskSearch()
{
    // The component may hold the service a little longer; the song is gone now.
    m_service->withdraw();
    m_service->setSongFacts({});
}

void DeskSearch::buildStatus()
{
    m_status = new QWidget(&m_window);
    auto *layout = new QHBoxLayout(m_status);
    layout->setContentsMargins(0, 0, 0, 0);
    m_label = new QLabel(m_status);
    m_label->setTextFormat(Qt::PlainText);
    auto *bar = new QProgressBar(m_status);
    bar->setRange(0, 0);
    bar->setTextVisible(false);
    bar->setFixedSize(kBarWidth, kBarHeight);
    bar->setAccessibleName(tr("Searching"));
    auto *button = new QToolButton(m_status);
    button->setObjectName(QStringLiteral("btnCancelSearch"));
    button->setText(tr("Cancel (Esc)"));
    button->setAccessibleName(tr("Cancel the search"));
    button->setToolTip(tr("Cancel the search"));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, m_service.get(), [this] { m_service->cancel(); });
    layout->addStretch(1);
    layout->addWidget(m_label);
    layout->addWidget(bar);
    layout->addWidget(button);
    m_window.statusBar()->addPermanentWidget(m_status);
    m_status->hide();
    m_window.installEventFilter(this);
}

// Not a shortcut: it would compete with the others for this key. What reaches the window is what nobody uses,
// neither the cell that is being typed in nor the preview, which closes first.
bool DeskSearch::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &m_window && event->type() == QEvent::KeyPress && m_service->isSearching()
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        m_service->cancel();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void DeskSearch::showSearching(const QString &title)
{
    m_window.statusBar()->clearMessage();
    m_label->setText(title.isEmpty() ? tr("Searching…") : tr("Searching for “%1”…").arg(shownTitle(title)));
    m_status->show();
}

void DeskSearch::showOutcome(LyricSearch::Outcome outcome, const QString &message)
{
    Q_UNUSED(outcome)
    m_status->hide();
    m_window.statusBar()->showMessage(message);
}

} // namespace desk
