// SPDX-License-Identifier: MIT
#include "host/DeskSearch.h"

#include "shell/contracts/TQInterfaceConfig.h"

#include <QtWidgets/QMainWindow>
#include <QtWidgets/QStatusBar>

#include <utility>

namespace desk {

namespace {

constexpr qsizetype kShownCharacters = 40;

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
    : m_window(window),
      m_status(window, {tr("Searching"), tr("Cancel the search")}, QStringLiteral("btnCancelSearch")),
      m_service(std::make_shared<LyricSearch>(settings)), m_bridge(std::make_shared<Bridge>(m_service))
{
    m_service->setSongFacts(std::move(facts));
    connect(&m_status, &StatusWork::cancelled, m_service.get(), [this] { m_service->cancel(); });
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

void DeskSearch::showSearching(const QString &title)
{
    m_window.statusBar()->clearMessage();
    m_status.show(title.isEmpty() ? tr("Searching…") : tr("Searching for “%1”…").arg(shownTitle(title)));
}

void DeskSearch::showOutcome(LyricSearch::Outcome outcome, const QString &message)
{
    Q_UNUSED(outcome)
    m_status.hide();
    m_window.statusBar()->showMessage(message);
}

} // namespace desk
