// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

/// A sound server of our own with one device that nobody hears, apart from any other on the
/// machine. Stopped when this goes.
class SoundServer
{
public:
    SoundServer() = default;
    ~SoundServer() { stop(); }
    SoundServer(const SoundServer &) = delete;
    SoundServer &operator=(const SoundServer &) = delete;

    [[nodiscard]] static bool isInstalled();

    /// Starts it and leads this process and its children to it. False when it does not answer.
    bool start();
    /// Ends it at once, as when a device is pulled out.
    void stop();

    /// What the server says of itself; `what` as `pactl list short` takes it.
    [[nodiscard]] QByteArray list(const QString &what) const;
    /// Begins to record what the device plays: mono, float, `audiofiles::kSampleRate`.
    bool record(QProcess &recorder) const;

private:
    QTemporaryDir m_folder;
    QProcess m_server;
};
