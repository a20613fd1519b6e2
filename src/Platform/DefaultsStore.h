#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace jotwell {

/// The user's persistent settings: typed values under plain string keys. Every call goes to the
/// store, may come from any thread and never fails towards its caller: what can't be read is
/// absent, and what can't be written is kept for the life of the process. What is set is read from
/// then on, and gets to the disk in the background.
class DefaultsStore {
public:
    enum class ValueType { string, data, integer, boolean };

    virtual ~DefaultsStore() = default;

    /// Text, or a number or truth value in its written form; absent for data and other types.
    [[nodiscard]] virtual std::optional<QString> string(const QString& key) const = 0;
    /// Bytes; absent for any other type.
    [[nodiscard]] virtual std::optional<QByteArray> data(const QString& key) const = 0;
    /// A number, also one written as text; 0 for anything else.
    [[nodiscard]] virtual qint64 integer(const QString& key) const = 0;
    /// A truth value, also one written as text ("true", "yes", "1"); false for anything else.
    [[nodiscard]] virtual bool boolean(const QString& key) const = 0;

    /// No text removes the key.
    virtual void setString(const QString& key, const std::optional<QString>& value) = 0;
    virtual void setData(const QString& key, const QByteArray& value) = 0;
    virtual void setInteger(const QString& key, qint64 value) = 0;
    virtual void setBoolean(const QString& key, bool value) = 0;
    virtual void remove(const QString& key) = 0;
    /// Waits until what was set before the call is on the disk, or couldn't be written.
    virtual void synchronize() = 0;

    /// Keys with a value, sorted, and the type as which each one is stored; absent for no value.
    [[nodiscard]] virtual QStringList keys() const = 0;
    [[nodiscard]] virtual std::optional<ValueType> storedType(const QString& key) const = 0;
};

} // namespace jotwell
