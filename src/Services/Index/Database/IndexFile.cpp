#include "Services/Index/Database/IndexFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace jotwell {

namespace {

constexpr QFile::Permissions privateFile = QFile::ReadOwner | QFile::WriteOwner;

void makePrivateFolder(const QString& folder)
{
    if (QFileInfo::exists(folder))
        return;
    QDir().mkpath(QFileInfo(folder).path());
    QDir().mkdir(folder, privateFile | QFile::ExeOwner);
}

QString freeNameBeside(const QString& file)
{
    const QString first = file + QStringLiteral(".damaged");
    QString name = first;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = first + u'-' + QString::number(number);
    return name;
}

} // namespace

void prepareIndexFile(const QString& file)
{
    makePrivateFolder(QFileInfo(file).path());
    // One that is there isn't opened: to close it would end the locks that SQLite has on it.
    const QFileInfo existing(file);
    if (existing.isFile())
        QFile::setPermissions(file, existing.permissions() & privateFile);
    else
        QFile(file).open(QIODevice::WriteOnly | QIODevice::NewOnly, privateFile);
}

bool setAsideIndexFile(const QString& file)
{
    const QString aside = freeNameBeside(file);
    // First what SQLite would take for the journal of the file that comes next.
    for (const char* suffix : {"-journal", "-wal", "-shm"}) {
        const QString companion = QLatin1String(suffix);
        QFile::rename(file + companion, aside + companion);
    }
    return QFile::rename(file, aside);
}

} // namespace jotwell
