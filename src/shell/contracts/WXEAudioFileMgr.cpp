// SPDX-License-Identifier: MIT
#include "shell/contracts/WXEAudioFileMgr.h"

#include <utility>

namespace {

WXEAudioFileMgr::Factory &registeredFactory()
{
    static WXEAudioFileMgr::Factory factory;
    return factory;
}

} // namespace

void WXEAudioFileMgr::setFactory(Factory factory)
{
    registeredFactory() = std::move(factory);
}

std::shared_ptr<WXEAudioFile> WXEAudioFileMgr::createAudioFileWithPath_dumpImmediately(
    const QString &path, bool dumpImmediately)
{
    // A copy, so that a factory may replace itself while it runs.
    const Factory factory = registeredFactory();
    return factory ? factory(path, dumpImmediately) : nullptr;
}
