#include "Services/TemplateFile.h"

#include "Support/FileText.h"

#include <QFileInfo>

#include <cerrno>

namespace jotwell {

namespace {

const QString extension = QStringLiteral(".md");

bool isTaken(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() || file.isSymLink();
}

} // namespace

TemplateFile::TemplateFile(QString path, const QString& known, AtomicFile files)
    : m_path(std::move(path)), m_known(known.toUtf8()), m_files(files)
{
}

// What can't be read isn't written over: nobody could tell what is lost.
Result<std::optional<QString>, SystemError> TemplateFile::write(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    const auto stored = readFile(m_path);
    if (!stored && stored.error().code != ENOENT)
        return stored.error();
    if (stored && *stored != m_known && *stored != bytes) {
        const auto kept = keepOther(*stored);
        if (!kept)
            return kept.error();
        m_kept = *kept;
        m_known = *stored; // should its place not be taken now, it isn't kept again
    }
    if (!stored || *stored != bytes) {
        if (const auto written = m_files.write(m_path, bytes); !written)
            return written.error();
    }
    m_known = bytes;
    return std::exchange(m_kept, std::nullopt);
}

Result<std::optional<QString>, SystemError> TemplateFile::keepOther(const QByteArray& stored)
{
    const QString path = freePathBeside();
    if (const auto written = m_files.write(path, stored); !written)
        return written.error();
    return std::optional(path);
}

QString TemplateFile::freePathBeside() const
{
    const QString base = m_path.endsWith(extension) ? m_path.chopped(extension.size()) : m_path;
    QString path = base + QStringLiteral(" (conflict)") + extension;
    for (int number = 2; isTaken(path); ++number)
        path = base + QStringLiteral(" (conflict %1)").arg(number) + extension;
    return path;
}

} // namespace jotwell
