// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/TQInterfaceConfig.h"

#include <QtCore/QString>

#include <memory>
#include <utility>
#include <vector>

namespace standin {

/// A lyric service that answers when the test says so. What it is still asked when it goes is
/// answered with null, as the contract wants.
class LyricService final : public TQLrcDownloadInterface
{
public:
    struct Request
    {
        QString title;
        QString artist;
        Completion completion;
    };

    ~LyricService() override
    {
        while (!requests.empty()) {
            answer({});
        }
    }
    void requestLyric_artist_completion(
        const QString &title, const QString &artist, Completion completion) override
    {
        requests.push_back({title, artist, std::move(completion)});
    }
    /// Answers the oldest request.
    void answer(const QByteArray &text)
    {
        const Request request = std::move(requests.front());
        requests.erase(requests.begin());
        request.completion(text);
    }

    std::vector<Request> requests;
};

class Bridge final : public TQInterfaceBridge
{
public:
    [[nodiscard]] std::shared_ptr<TQLrcDownloadInterface> lrcDownloadInterface() const override
    {
        return service;
    }
    std::shared_ptr<LyricService> service = std::make_shared<LyricService>();
};

/// A bridge, registered for as long as this lives.
struct RegisteredBridge
{
    RegisteredBridge() { TQInterfaceConfig::setBridge(std::weak_ptr<TQInterfaceBridge>(bridge)); }
    ~RegisteredBridge() { TQInterfaceConfig::setBridge({}); }
    RegisteredBridge(const RegisteredBridge &) = delete;
    RegisteredBridge &operator=(const RegisteredBridge &) = delete;
    [[nodiscard]] LyricService &service() const { return *bridge->service; }

    std::shared_ptr<Bridge> bridge = std::make_shared<Bridge>();
};

} // namespace standin
