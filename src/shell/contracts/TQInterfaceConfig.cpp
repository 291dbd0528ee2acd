// SPDX-License-Identifier: MIT
#include "shell/contracts/TQInterfaceConfig.h"

namespace {

std::weak_ptr<TQInterfaceBridge> &registeredBridge()
{
    static std::weak_ptr<TQInterfaceBridge> bridge;
    return bridge;
}

} // namespace

std::shared_ptr<TQInterfaceBridge> TQInterfaceConfig::getBridge()
{
    return registeredBridge().lock();
}

void TQInterfaceConfig::setBridge(const std::weak_ptr<TQInterfaceBridge> &bridge)
{
    registeredBridge() = bridge;
}
