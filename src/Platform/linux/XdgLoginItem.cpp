#include "Platform/linux/XdgLoginItem.h"

#include "Platform/FileCalls.h"
#include "Support/FileText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <sys/stat.h>

namespace jotwell {

namespace {

const QString fileName = QStringLiteral("/com.jotwell.Jotwell.desktop");

const QByteArrayList ownKeys = {
    "Type",    "Name", "Comment",       "Exec",
    "TryExec", "Icon", "StartupNotify", "X-GNOME-Autostart-enabled",
    "Hidden",
};

QString reason(const QString& path, const SystemError& error)
{
    return path + QStringLiteral(": ") + error.description();
}

bool isFile(const QString& path)
{
    return QFileInfo(path).isFile();
}

bool isStartedBy(const QByteArray& commandLine, const QByteArray& word)
{
    return (' ' + commandLine + ' ').contains(' ' + word + ' ');
}

} // namespace

XdgLoginItem::XdgLoginItem(AutostartFolders folders, QString program, FileCalls& calls)
    : m_folders(std::move(folders)), m_program(std::move(program)), m_calls(calls), m_file(calls)
{
}

QString XdgLoginItem::file() const
{
    return m_folders.user + fileName;
}

LoginItem::Status XdgLoginItem::status() const
{
    // The user's own entry hides those of the system, whatever it says.
    const bool isOwn = isFile(file());
    const auto entry = ownEntry();
    const bool wouldStart = isOwn ? entry && m_folders.wouldStart(*entry) : wouldStartBySystem();
    return wouldStart ? Status::enabled : Status::notRegistered;
}

bool XdgLoginItem::wouldStartBySystem() const
{
    for (const QString& folder : m_folders.system) {
        if (!isFile(folder + fileName))
            continue;
        const auto bytes = readFile(folder + fileName);
        return bytes && m_folders.wouldStart(DesktopEntry(*bytes));
    }
    return false;
}

// What isn't there reads as an empty entry.
Result<DesktopEntry, SystemError> XdgLoginItem::ownEntry() const
{
    const auto bytes = readFile(file());
    if (!bytes && bytes.error().code != ENOENT)
        return bytes.error();
    return DesktopEntry(bytes ? *bytes : QByteArray());
}

std::optional<QString> XdgLoginItem::registerItem()
{
    if (!QFileInfo(m_program).isExecutable() || !isFile(m_program))
        return m_program + QStringLiteral(": there is no such program");
    if (auto failure = makeFolder())
        return failure;
    const auto entry = ownEntry();
    if (!entry)
        return reason(file(), entry.error());
    return write(completed(*entry));
}

// What the user has added stays, unless it keeps the program from being started.
DesktopEntry XdgLoginItem::completed(DesktopEntry entry) const
{
    const QByteArray program = QFile::encodeName(m_program);
    const QByteArray word = DesktopEntry::commandLine(program);
    const auto setIfMissing = [&](const QByteArray& key, const QByteArray& value) {
        if (!entry.value(key))
            entry.set(key, value);
    };
    entry.commentOutMalformedLines();
    entry.set("Type", "Application");
    setIfMissing("Name", "Jotwell");
    setIfMissing("Comment", "Capture a note for Obsidian");
    if (!isStartedBy(entry.value("Exec").value_or(QByteArray()), word))
        entry.set("Exec", word);
    entry.set("TryExec", DesktopEntry::escaped(program));
    setIfMissing("Icon", "com.jotwell.Jotwell");
    setIfMissing("StartupNotify", "false");
    entry.set("X-GNOME-Autostart-enabled", "true");
    entry.remove("Hidden");
    if (!m_folders.concerns(entry)) {
        entry.remove("OnlyShowIn");
        entry.remove("NotShowIn");
    }
    return entry;
}

std::optional<QString> XdgLoginItem::unregisterItem()
{
    const auto entry = ownEntry();
    if (!entry)
        return reason(file(), entry.error());
    if (!wouldStartBySystem() && entry->hasNothingBut(ownKeys))
        return removeFile();
    if (auto failure = makeFolder())
        return failure;
    return write(hidden(*entry));
}

DesktopEntry XdgLoginItem::hidden(DesktopEntry entry)
{
    entry.commentOutMalformedLines();
    entry.set("Type", "Application");
    if (!entry.value("Name"))
        entry.set("Name", "Jotwell");
    entry.set("Hidden", "true");
    return entry;
}

std::optional<QString> XdgLoginItem::makeFolder() const
{
    const QString parent = QFileInfo(m_folders.user).path();
    QDir().mkpath(QFileInfo(parent).path());
    for (const QString& folder : {parent, m_folders.user}) {
        if (::mkdir(QFile::encodeName(folder).constData(), S_IRWXU) != 0 && errno != EEXIST)
            return reason(folder, SystemError::last());
        if (!QFileInfo(folder).isDir())
            return reason(folder, SystemError{ENOTDIR});
    }
    return std::nullopt;
}

std::optional<QString> XdgLoginItem::write(const DesktopEntry& entry) const
{
    if (QFileInfo(file()).isSymLink())
        return replaceLink(entry.bytes());
    const auto written = m_file.write(file(), entry.bytes());
    return written ? std::nullopt : std::optional(reason(file(), written.error()));
}

// A link leads to a file that others go by too, such as the one in the menu of applications.
std::optional<QString> XdgLoginItem::replaceLink(const QByteArray& bytes) const
{
    const QString successor = file() + QStringLiteral(".new");
    if (const auto written = m_file.write(successor, bytes); !written)
        return reason(successor, written.error());
    const QByteArray from = QFile::encodeName(successor);
    if (m_calls.rename(from.constData(), QFile::encodeName(file()).constData()) == 0)
        return std::nullopt;
    const SystemError error = SystemError::last();
    m_calls.unlink(from.constData());
    return reason(file(), error);
}

std::optional<QString> XdgLoginItem::removeFile() const
{
    if (m_calls.unlink(QFile::encodeName(file()).constData()) == 0 || errno == ENOENT)
        return std::nullopt;
    return reason(file(), SystemError::last());
}

} // namespace jotwell
