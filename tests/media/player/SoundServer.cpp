// SPDX-License-Identifier: MIT
#include "media/player/SoundServer.h"

#include "media/player/AudioFiles.h"

#include <QtCore/QStandardPaths>

bool SoundServer::isInstalled()
{
    for (const char *program : {"pulseaudio", "pactl", "parec"}) {
        if (QStandardPaths::findExecutable(QString::fromUtf8(program)).isEmpty()) {
            return false;
        }
    }
    return true;
}

bool SoundServer::start()
{
    const QString socket = m_folder.filePath(QStringLiteral("native"));
    for (const char *name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "PULSE_RUNTIME_PATH"}) {
        qputenv(name, m_folder.path().toUtf8());
    }
    qputenv("PULSE_SERVER", "unix:" + socket.toUtf8());
    m_server.setStandardErrorFile(QProcess::nullDevice());
    // Without rewinds: a device that nobody hears stands still for a second after one.
    m_server.start(QStringLiteral("pulseaudio"),
        {QStringLiteral("-n"), QStringLiteral("--daemonize=no"), QStringLiteral("--exit-idle-time=-1"),
            QStringLiteral("--use-pid-file=no"), QStringLiteral("-L"),
            QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") + socket,
            QStringLiteral("-L"), QStringLiteral("module-null-sink sink_name=out norewinds=1")});
    if (!m_server.waitForStarted()) {
        return false;
    }
    for (int attempts = 0; attempts < 200 && m_server.state() == QProcess::Running; ++attempts) {
        if (list(QStringLiteral("sinks")).contains("out")) {
            return true;
        }
    }
    return false;
}

void SoundServer::stop()
{
    if (m_server.state() != QProcess::NotRunning) {
        m_server.kill();
        m_server.waitForFinished();
    }
}

QByteArray SoundServer::list(const QString &what) const
{
    QProcess asker;
    asker.start(QStringLiteral("pactl"), {QStringLiteral("list"), QStringLiteral("short"), what});
    return asker.waitForFinished() && asker.exitCode() == 0 ? asker.readAllStandardOutput() : QByteArray();
}

bool SoundServer::record(QProcess &recorder) const
{
    recorder.start(QStringLiteral("parec"),
        {QStringLiteral("--raw"), QStringLiteral("--device=out.monitor"), QStringLiteral("--latency-msec=5"),
            QStringLiteral("--channels=1"), QStringLiteral("--format=float32le"),
            QStringLiteral("--rate=%1").arg(audiofiles::kSampleRate)});
    return recorder.waitForStarted();
}
