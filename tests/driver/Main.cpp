#include "driver/Driver.h"
#include "driver/EventLoop.h"
#include "driver/Session.h"

#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <optional>

#include <unistd.h>

namespace jotwell {

namespace {

QString requestedHome(const QStringList& arguments)
{
    const QCommandLineOption home(QStringLiteral("home"), QStringLiteral("The scratch folder."),
                                  QStringLiteral("DIR"),
                                  qEnvironmentVariable("JOTWELL_DRIVER_HOME"));
    QCommandLineParser parser;
    parser.addOption(home);
    if (!parser.parse(arguments)) {
        std::cerr << parser.errorText().toStdString() << '\n';
        std::exit(2);
    }
    return parser.value(home);
}

// Nothing that a library stores on its own may lie outside the home either.
void keepInside(const QString& home)
{
    const QByteArray below = (home + QStringLiteral("/.driver/")).toUtf8();
    qputenv("XDG_CONFIG_HOME", below + "config");
    qputenv("XDG_DATA_HOME", below + "data");
    qputenv("XDG_CACHE_HOME", below + "cache");
}

// Answers keep standard output for themselves; whatever else is written there goes to standard
// error.
std::FILE* takeStandardOutput()
{
    std::FILE* const answers = ::fdopen(::dup(STDOUT_FILENO), "w");
    ::dup2(STDERR_FILENO, STDOUT_FILENO);
    return answers;
}

QStringList listed(int argc, char** argv)
{
    QStringList arguments;
    for (int each = 0; each < argc; ++each)
        arguments.append(QString::fromLocal8Bit(argv[each]));
    return arguments;
}

bool serve(const QString& home, std::FILE* answers)
{
    Session session(home);
    const bool isHeard = Driver(session).run(std::cin, answers);
    constexpr std::chrono::seconds patience{2};
    // Work that still hangs by then is left to the system with all that it touches.
    session.stopIndex();
    if (!drainEventLoop([&session] { return session.platform().isWorking(); }, patience))
        std::_Exit(isHeard ? EXIT_SUCCESS : EXIT_FAILURE);
    return isHeard;
}

} // namespace

} // namespace jotwell

int main(int argc, char** argv)
{
    std::signal(SIGPIPE, SIG_IGN); // a closed output shows as a failing write
    std::FILE* const answers = jotwell::takeStandardOutput();
    if (!answers)
        return EXIT_FAILURE;
    std::ios::sync_with_stdio(false);

    std::optional<QTemporaryDir> scratch;
    QString home = jotwell::requestedHome(jotwell::listed(argc, argv));
    if (home.isEmpty())
        home = scratch.emplace(QDir::tempPath() + QStringLiteral("/jotwell-driver-XXXXXX")).path();
    home = QDir::cleanPath(QDir(home).absolutePath());
    if (!QDir().mkpath(home)) {
        std::cerr << "There can't be a folder " << home.toStdString() << '\n';
        return EXIT_FAILURE;
    }
    jotwell::keepInside(home);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    return jotwell::serve(home, answers) ? EXIT_SUCCESS : EXIT_FAILURE;
}
