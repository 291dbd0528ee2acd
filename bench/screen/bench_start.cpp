// SPDX-License-Identifier: MIT
//
// How long it takes until there is a painted window: an empty one of Qt, the component in one, lyricdesk.
// This program starts itself anew for each, loading included. Of several starts the shortest counts: what it
// takes when nothing else runs.

#include "Table.h"
#include "host/DeskWindow.h"
#include "media/player/Player.h"
#include "screen/Desk.h"

#include <QtCore/QLoggingCategory>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>

#include <chrono>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kRounds = 30;

/// The process as it would be used: shown, painted, and left without ceremony.
[[noreturn]] void showAndLeave(QWidget &window)
{
    window.show();
    settle();
    _exit(EXIT_SUCCESS);
}

int runAs(const QString &what, int argc, char **argv)
{
    QApplication application(argc, argv);
    if (what == QLatin1String("empty")) {
        QMainWindow window;
        window.setCentralWidget(new QLabel(QStringLiteral("empty")));
        showAndLeave(window);
    }
    if (what == QLatin1String("component")) {
        const Desk desk;
        showAndLeave(*desk.window);
    }
    desk::DeskWindow window(media::Player::create());
    showAndLeave(window);
}

/// Nanoseconds from the start of this program with `what` to its end.
double costOf(const char *program, const char *what)
{
    const auto begin = std::chrono::steady_clock::now();
    char *const arguments[] = {const_cast<char *>(program), const_cast<char *>(what), nullptr};
    pid_t child = 0;
    int status = 0;
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    if (posix_spawn(&child, program, &files, nullptr, arguments, environ) != 0
        || waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "%s could not be started\n", what);
        std::exit(EXIT_FAILURE);
    }
    posix_spawn_file_actions_destroy(&files);
    const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - begin;
    return time.count();
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules(QStringLiteral("*.info=false"));
    const QString what = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (what == QLatin1String("empty") || what == QLatin1String("component") || what == QLatin1String("desk"))
        return runAs(what, argc, argv);
    std::vector<double> empty, component, desk;
    // In turns, so that what the machine does meanwhile meets all of them.
    for (int i = 0; i < kRounds; ++i) {
        empty.push_back(costOf("/proc/self/exe", "empty"));
        component.push_back(costOf("/proc/self/exe", "component"));
        desk.push_back(costOf("/proc/self/exe", "desk"));
    }
    table::head("start to painted (ns)");
    const double yardstick = quantile(empty, 0);
    table::row("the component", 0, quantile(component, 0), "an empty window of Qt", yardstick, 1.5);
    table::row("lyricdesk", 0, quantile(desk, 0), "an empty window of Qt", yardstick, 1.5);
    return 0;
}
