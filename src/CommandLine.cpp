#include "CommandLine.h"

#include "Platform/BuildSettings.h"

#include <QCommandLineParser>

#include <cstdio>
#include <cstdlib>

namespace jotwell {

namespace {

constexpr int wrongUse = 2;

const QString help = QStringLiteral("help");
const QString version = QStringLiteral("version");

const QString usage = QStringLiteral(R"(Usage: jotwell [OPTION]
Waits in the tray with a capture window for notes in an Obsidian vault. If it is
running already, that one shows or hides its window.

  -h, --help     say this, and end
  -v, --version  say which version this is, and end

Options of Qt, such as -platform, are taken as well. See also: man jotwell
)");

// Session managers give the first of them.
void addOptionsOfQt(QCommandLineParser& parser)
{
    for (const char* name : {"session", "display", "geometry", "platform", "platformpluginpath",
                             "platformtheme", "plugin", "qmljsdebugger", "qwindowgeometry",
                             "qwindowicon", "qwindowtitle", "style", "stylesheet"})
        parser.addOption({QString::fromLatin1(name), {}, QStringLiteral("value")});
    for (const char* name : {"reverse", "widgetcount"})
        parser.addOption(QCommandLineOption(QString::fromLatin1(name)));
}

QString complaintOf(const QCommandLineParser& parser, bool isParsed)
{
    if (!isParsed)
        return parser.errorText();
    const QStringList names = parser.positionalArguments();
    return names.isEmpty() ? QString() : QStringLiteral("Unexpected: '%1'.").arg(names.first());
}

} // namespace

std::optional<CommandLineAnswer> answerTo(const QStringList& commandLine)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("h"), help}));
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("v"), version}));
    addOptionsOfQt(parser);
    const QString complaint = complaintOf(parser, parser.parse(commandLine));
    if (!complaint.isEmpty())
        return CommandLineAnswer{
            wrongUse, QStringLiteral("jotwell: %1\nTry 'jotwell --help'.\n").arg(complaint)};
    if (parser.isSet(help))
        return CommandLineAnswer{0, usage};
    if (parser.isSet(version))
        return CommandLineAnswer{0, QStringLiteral("jotwell %1\n").arg(build::version)};
    return std::nullopt;
}

std::optional<int> answerCommandLine(int argc, const char* const* argv)
{
    QStringList commandLine;
    for (int i = 0; i < argc; ++i)
        commandLine.append(QString::fromLocal8Bit(argv[i]));
    const auto answer = answerTo(commandLine);
    if (!answer)
        return std::nullopt;
    std::FILE* const stream = answer->status == 0 ? stdout : stderr;
    const bool isSaid =
        std::fputs(answer->text.toLocal8Bit().constData(), stream) >= 0 && std::fflush(stream) == 0;
    return isSaid ? answer->status : EXIT_FAILURE;
}

} // namespace jotwell
