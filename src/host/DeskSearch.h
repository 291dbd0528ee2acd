// SPDX-License-Identifier: MIT
#pragma once

#include "host/LyricSearch.h"
#include "host/StatusWork.h"

#include <functional>
#include <memory>

class QMainWindow;

namespace desk {

/// The search for lyrics in lyricdesk's window: lends the service to the component, shows in the status
/// bar that it runs and what came of it, and lets the user cancel it, by a button or Escape.
class DeskSearch final : public QObject
{
    Q_OBJECT

public:
    /// \param window  outlives this.
    DeskSearch(QMainWindow &window, const LyricSearch::Settings &settings,
        std::function<LyricSearch::SongFacts()> facts);
    ~DeskSearch() override;

    /// Another song is shown.
    void withdraw() { m_service->withdraw(); }

private:
    class Bridge;

    void showSearching(const QString &title);
    void showOutcome(LyricSearch::Outcome outcome, const QString &message);

    QMainWindow &m_window;
    StatusWork m_status;
    std::shared_ptr<LyricSearch> m_service;
    std::shared_ptr<Bridge> m_bridge;
};

} // namespace desk
