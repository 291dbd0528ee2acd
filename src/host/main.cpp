// SPDX-License-Identifier: MIT
#include "host/DeskWindow.h"
#include "media/items/TaggedAudioFile.h"
#include "media/player/Player.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QTextStream>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>

namespace {

QStringList songsFromCommandLine(const QApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QApplication::translate("main", "Writes time-synchronised lyrics into your songs."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("song"),
        QApplication::translate("main", "The song to open; without one, the demonstration song."),
        QStringLiteral("[song]"));
    parser.process(application);
    return parser.positionalArguments();
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("lyricdesk"));
    QApplication::setApplicationVersion(QStringLiteral(TQLRC_VERSION));
    const QStringList songs = songsFromCommandLine(application);
    if (songs.size() > 1) {
        QTextStream(stderr) << "lyricdesk: one song at a time: opening " << songs.first()
                            << "; open the others from the File menu\n";
    }

    desk::DeskWindow window(media::Player::create());
    media::TaggedAudioFile::registerAsFactory();
    window.show();
    // From within the event loop, so that a message can be shown and the window is there already.
    QMetaObject::invokeMethod(
        &window, [&] { songs.isEmpty() ? window.openDemonstration() : window.open(songs.first()); },
        Qt::QueuedConnection);
    return QApplication::exec();
}
