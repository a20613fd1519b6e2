#pragma once

#include "Platform/DefaultsStore.h"
#include "Platform/qt/BackgroundWriter.h"
#include "Support/AtomicFile.h"

#include <QMap>
#include <QVariant>

#include <chrono>
#include <mutex>

namespace jotwell {

/// The settings as an INI file of QSettings, private to the user. A reading never writes. A write
/// replaces the file whole, in the background: a value counts from the call on, and values that are
/// set while the disk is written go out together behind that. If a write fails, its values hold for
/// the life of the process and go out with the next one that succeeds. Changes that other programs
/// make are seen at the next read.
class IniDefaultsStore : public DefaultsStore {
public:
    /// `filePath` and its folder need not exist. At the end the store waits until all that was set
    /// has been tried once.
    IniDefaultsStore(QString filePath, FileCalls& files);

    [[nodiscard]] std::optional<QString> string(const QString& key) const override;
    [[nodiscard]] std::optional<QByteArray> data(const QString& key) const override;
    [[nodiscard]] qint64 integer(const QString& key) const override;
    [[nodiscard]] bool boolean(const QString& key) const override;

    void setString(const QString& key, const std::optional<QString>& value) override;
    void setData(const QString& key, const QByteArray& value) override;
    void setInteger(const QString& key, qint64 value) override;
    void setBoolean(const QString& key, bool value) override;
    void remove(const QString& key) override;
    void synchronize() override;

    [[nodiscard]] QStringList keys() const override;
    [[nodiscard]] std::optional<ValueType> storedType(const QString& key) const override;

private:
    using Values = QMap<QString, QVariant>;

    struct Content {
        Values values;
        bool isDamaged = false; ///< there is more than could be made sense of
        bool isReadable = true; ///< as far as there is a file
    };

    /// What tells one state of the file from the next without reading it.
    struct FileIdentity {
        quint64 device = 0, inode = 0;
        qint64 size = -1;
        std::chrono::nanoseconds modified{}, changed{};
        bool operator==(const FileIdentity&) const = default;
    };

    [[nodiscard]] QVariant value(const QString& key) const;
    void setValue(const QString& key, const QVariant& value);
    void write();
    [[nodiscard]] bool hasUnsaved() const;
    [[nodiscard]] Content takeUnsaved();
    void finishSave(bool isSaved);
    void makeFolder() const;
    void load() const;
    [[nodiscard]] Content readContent() const;
    [[nodiscard]] Content mergedContent() const;
    [[nodiscard]] bool save(const Content& content) const;
    [[nodiscard]] Result<void, SystemError> replaceFile(const QByteArray& bytes,
                                                        const Content& content) const;
    [[nodiscard]] QString freeNameForDamagedFile() const;
    [[nodiscard]] FileIdentity identityOnDisk() const;
    void rememberIdentity(const FileIdentity& identity) const;

    const QString m_filePath;
    FileCalls& m_calls;
    const AtomicFile m_file;
    mutable std::mutex m_mutex; ///< for what follows, and never held while the disk syncs
    mutable Content m_content;
    mutable FileIdentity m_identity;
    mutable bool m_isSettled = true; ///< another identity will mean another state of the file
    Values m_beingSaved;             ///< an invalid value stands for a removed key
    Values m_unsaved;                ///< likewise, and set later
    BackgroundWriter m_writer{[this] { write(); }}; ///< goes first: it writes what is unsaved
};

} // namespace jotwell
