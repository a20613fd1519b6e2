#include "Services/ScratchFolder.h"

#include "Support/FileText.h"
#include "Support/TextUnits.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace jotwell {

void ScratchFolder::put(const QString& name, const QByteArray& bytes) const
{
    QFile file(pathOf(name));
    ASSERT_TRUE(QDir().mkpath(QFileInfo(file).path()));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
    ASSERT_EQ(file.write(bytes), bytes.size());
}

void ScratchFolder::makeFolder(const QString& name) const
{
    ASSERT_TRUE(QDir().mkpath(pathOf(name)));
}

void ScratchFolder::makeFifo(const QString& name) const
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(pathOf(name)).constData(), 0600), 0);
}

void ScratchFolder::makeLink(const QString& name, const QString& target) const
{
    const QByteArray link = QFile::encodeName(pathOf(name));
    ASSERT_EQ(::symlink(QFile::encodeName(target).constData(), link.constData()), 0);
}

void ScratchFolder::remove(const QString& name) const
{
    ASSERT_TRUE(QFile::remove(pathOf(name)));
}

void ScratchFolder::rename(const QString& from, const QString& to) const
{
    ASSERT_TRUE(QFile::rename(pathOf(from), pathOf(to)));
}

void ScratchFolder::setChanged(const QString& name, const QDateTime& moment) const
{
    const qint64 time = moment.toMSecsSinceEpoch();
    const timespec stamp{time / 1000, time % 1000 * 1'000'000};
    const timespec both[] = {stamp, stamp};
    ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(pathOf(name)).constData(), both,
                          AT_SYMLINK_NOFOLLOW),
              0);
}

QByteArray ScratchFolder::bytesOf(const QString& name) const
{
    const auto bytes = readFile(pathOf(name));
    return bytes ? *bytes : "(" + bytes.error().description().toUtf8() + ")";
}

QStringList ScratchFolder::names() const
{
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    QStringList names = QDir(path()).entryList(everything, QDir::Unsorted);
    std::sort(names.begin(), names.end(), precedesByCodePoint);
    return names;
}

} // namespace jotwell
