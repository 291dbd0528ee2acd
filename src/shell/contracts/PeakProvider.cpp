// SPDX-License-Identifier: MIT
#include "shell/contracts/PeakProvider.h"

namespace {

std::weak_ptr<PeakProvider> &registeredProvider()
{
    static std::weak_ptr<PeakProvider> provider;
    return provider;
}

} // namespace

void PeakProvider::setProvider(const std::weak_ptr<PeakProvider> &provider)
{
    registeredProvider() = provider;
}

std::shared_ptr<PeakProvider> PeakProvider::provider()
{
    return registeredProvider().lock();
}
