// SPDX-License-Identifier: MIT
#include "media/player/FailureText.h"

#include "media/player/Pipeline.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>

namespace media {

namespace {

QString withName(const char *text, const QString &path)
{
    return QCoreApplication::translate("media::Player", text).arg(QFileInfo(path).fileName());
}

} // namespace

QString obstacleTo(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists()) {
        return withName("The file “%1” cannot be found.", path);
    }
    if (!file.isFile()) {
        return withName("“%1” is not a file.", path);
    }
    if (!file.isReadable()) {
        return withName("The file “%1” cannot be opened: reading it is not permitted.", path);
    }
    if (file.size() == 0) {
        return withName("The file “%1” is empty.", path);
    }
    return {};
}

QString failureText(const PipelineFailure &failure, const QString &path)
{
    using Cause = PipelineFailure::Cause;
    switch (failure.cause) {
    case Cause::NotAudio:
        return withName("“%1” is not an audio file.", path);
    case Cause::DecoderMissing:
        return withName("“%1” cannot be played because a decoder is not installed: %2.", path)
            .arg(failure.detail);
    case Cause::Unreadable:
        return withName("The file “%1” cannot be read.", path);
    case Cause::Output:
        return withName("“%1” cannot be played because the sound output does not work.", path);
    case Cause::Damaged:
        break;
    }
    return withName("“%1” is damaged or in a form that cannot be played.", path);
}

QString libraryMissingText()
{
    return QCoreApplication::translate(
        "media::Player", "Nothing can be played because parts of the multimedia library are not installed.");
}

} // namespace media
