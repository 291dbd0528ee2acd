// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class TQLrcDownloadInterface;

/// The services that a host lends to the component.
class TQInterfaceBridge
{
public:
    virtual ~TQInterfaceBridge() = default;

    /// Finds lyrics; null when the host does not. Asked each time before it is used.
    [[nodiscard]] virtual std::shared_ptr<TQLrcDownloadInterface> lrcDownloadInterface() const = 0;
};
