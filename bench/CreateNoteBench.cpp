#include "Samples.h"

#include "Platform/NativePlatform.h"
#include "Services/ObsidianService.h"
#include "Services/SettingsService.h"
#include "Services/TagIndexService.h"
#include "Services/ToastManager.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QTemporaryDir>

#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

// Writes one note after the other, by turns with `createNote` and with nothing but the system calls
// that a safe write can't do without: open, write, fsync, rename, fsync of the folder.

using namespace jotwell;

namespace {

constexpr int warmUpRounds = 30;
constexpr int rounds = 600;
constexpr qsizetype noteSize = 1600; // the median note

void check(bool succeeded, const char* what)
{
    if (succeeded)
        return;
    std::perror(what);
    std::exit(EXIT_FAILURE);
}

void writeBare(const QByteArray& folder, const QByteArray& name, const QByteArray& bytes)
{
    const QByteArray path = folder + '/' + name;
    const QByteArray temporary = folder + "/.bare";
    const int file = ::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    check(file >= 0, "open");
    check(::write(file, bytes.constData(), static_cast<size_t>(bytes.size())) == bytes.size(),
          "write");
    check(::fsync(file) == 0, "fsync");
    ::close(file);
    check(::rename(temporary.constData(), path.constData()) == 0, "rename");
    const int directory = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    check(directory >= 0, "open folder");
    check(::fsync(directory) == 0, "fsync folder");
    ::close(directory);
}

void createNote(ObsidianService& service, const QString& text)
{
    QEventLoop loop;
    bool isOver = false;
    auto task = service.createNote(text, std::nullopt);
    QCoro::connect(std::move(task), &loop, [&](const Result<void, NoteError>& created) {
        check(created.ok(), "createNote");
        isOver = true;
        loop.quit();
    });
    if (!isOver)
        loop.exec();
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder(QString::fromLocal8Bit(argc > 1 ? argv[1] : ".") +
                               QStringLiteral("/notes-XXXXXX"));
    check(folder.isValid(), "folder");
    QDir(folder.path()).mkdir(QStringLiteral("ours"));
    QDir(folder.path()).mkdir(QStringLiteral("bare"));

    const NativePlatform native(folder.filePath(QStringLiteral("Jotwell.ini")),
                                folder.filePath(QStringLiteral("data")));
    const Platform& platform = native.platform();
    SettingsService settings(platform.defaults, [] { return ObsidianTemplates(); });
    ToastManager toasts(platform.scheduler);
    TagIndexService index(platform);
    ObsidianService service(platform, settings, toasts, index);
    // Only now, so that no index is being built beside what is measured.
    settings.setObsidianFolderPath(folder.filePath(QStringLiteral("ours")));

    const QByteArray bareFolder = folder.filePath(QStringLiteral("bare")).toUtf8();
    const QByteArray bytes(noteSize, 'x');
    const QString body = QString(noteSize, u'x');
    Samples ours;
    Samples bare;
    for (int round = 0; round < warmUpRounds + rounds; ++round) {
        const QString name = QStringLiteral("Note %1").arg(round);
        const QString text = QStringLiteral("/new_note  $Default\n") + name + u'\n' + body;
        const auto start = Samples::Clock::now();
        writeBare(bareFolder, name.toUtf8() + ".md", bytes);
        const auto between = Samples::Clock::now();
        createNote(service, text);
        const auto end = Samples::Clock::now();
        if (round < warmUpRounds)
            continue;
        bare.add(between - start);
        ours.add(end - between);
    }
    ours.print("createNote");
    bare.print("createNote reference");
}
