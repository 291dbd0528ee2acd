// SPDX-License-Identifier: MIT
#include "host/DeskWindow.h"
#include "host/Translations.h"
#include "media/items/TaggedAudioFile.h"
#include "media/player/Player.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QTextStream>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstdlib>
#include <span>
#include <string_view>

namespace {

struct CommandLine
{
    QStringList songs;
    desk::LyricSearch::Settings search;
};

/// Without a display the toolkit ends the program with a dump of its memory, and says what only programmers
/// know.
bool hasDisplay(std::span<char *const> arguments)
{
    const auto choosesPlatform
        = [](std::string_view argument) { return argument == "-platform" || argument == "--platform"; };
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("DISPLAY")
        || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || std::ranges::any_of(arguments, choosesPlatform);
}

CommandLine readCommandLine(const QCoreApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("main", "Writes time-synchronised lyrics into your songs."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("song"),
        QCoreApplication::translate("main", "The song to open; without one, the demonstration song."),
        QStringLiteral("[song]"));
    const QCommandLineOption service(QStringLiteral("lyric-service"),
        QCoreApplication::translate("main",
            "Search for lyrics at <address>, which answers as lrclib.net does: https, or http on this "
            "computer."),
        QCoreApplication::translate("main", "address"));
    parser.addOption(service);
    parser.process(application);

    CommandLine given{parser.positionalArguments(), {}};
    given.search.userAgent = "lyricdesk v" TQLRC_VERSION;
    if (parser.isSet(service)) {
        given.search.address = QUrl(parser.value(service), QUrl::StrictMode);
        if (!desk::isSafeAddress(given.search.address)) {
            QTextStream(stderr) << "lyricdesk: --lyric-service takes an https address, or an http one on "
                                   "this computer, not "
                                << parser.value(service) << '\n';
            std::exit(EXIT_FAILURE);
        }
    }
    return given;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("lyricdesk"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TQLRC_VERSION));
    if (!hasDisplay({argv, std::size_t(argc)})) {
        QCoreApplication application(argc, argv);
        desk::installTranslations(application);
        readCommandLine(application);
        QTextStream(stderr)
            << "lyricdesk: there is no display to open a window on; start it within a desktop, "
               "or set DISPLAY or WAYLAND_DISPLAY\n";
        return EXIT_FAILURE;
    }
    QApplication application(argc, argv);
    desk::installTranslations(application);
    const auto [songs, search] = readCommandLine(application);
    if (songs.size() > 1) {
        QTextStream(stderr) << "lyricdesk: one song at a time: opening " << songs.first()
                            << "; open the others from the File menu\n";
    }

    desk::DeskWindow window(media::Player::create(), search);
    media::TaggedAudioFile::registerAsFactory();
    window.show();
    // From within the event loop, so that a message can be shown and the window is there already.
    QMetaObject::invokeMethod(
        &window,
        [&, &songs = songs] { songs.isEmpty() ? window.openDemonstration() : window.open(songs.first()); },
        Qt::QueuedConnection);
    return QApplication::exec();
}
