// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/TQInterfaceBridge.h"
#include "shell/contracts/TQLrcDownloadInterface.h"

#include <memory>

/// Where the component finds its host's services: one bridge for the whole process.
class TQInterfaceConfig
{
public:
    /// What the host registered last; null when it registered nothing, or that is gone.
    [[nodiscard]] static std::shared_ptr<TQInterfaceBridge> getBridge();
    /// Held weakly; an empty one takes it back. Register before you show an item: the command that
    /// needs a service can be chosen from then on.
    static void setBridge(const std::weak_ptr<TQInterfaceBridge> &bridge);
};
