// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <functional>
#include <memory>

class WXEAudioFile;

/// Makes audio items from paths, by what the host registered.
class WXEAudioFileMgr
{
public:
    using Factory = std::function<std::shared_ptr<WXEAudioFile>(const QString &path, bool dumpImmediately)>;

    /// The host's way of opening a file; an empty function takes it back.
    static void setFactory(Factory factory);

    /// A new item for the file at `path`; null when it cannot be opened or the host registered
    /// nothing. `dumpImmediately` asks for all tags to be read at once.
    [[nodiscard]] static std::shared_ptr<WXEAudioFile> createAudioFileWithPath_dumpImmediately(
        const QString &path, bool dumpImmediately);
};
