#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QStringList>
#include <QTemporaryDir>

namespace jotwell {

/// A folder of the real file system for the length of a test. Names are relative to it; what can't
/// be done fails the test.
class ScratchFolder {
public:
    [[nodiscard]] QString path() const { return m_folder.path(); }
    [[nodiscard]] QString pathOf(const QString& name) const { return path() + u'/' + name; }

    /// Writes a file, its folders first where they aren't there.
    void put(const QString& name, const QByteArray& bytes = {}) const;
    void makeFolder(const QString& name) const;
    void makeFifo(const QString& name) const;
    void makeLink(const QString& name, const QString& target) const;
    void remove(const QString& name) const;
    void rename(const QString& from, const QString& to) const;
    void setChanged(const QString& name, const QDateTime& moment) const;

    [[nodiscard]] QByteArray bytesOf(const QString& name) const;
    /// All entries, hidden ones too, sorted by code point.
    [[nodiscard]] QStringList names() const;

private:
    QTemporaryDir m_folder;
};

} // namespace jotwell
