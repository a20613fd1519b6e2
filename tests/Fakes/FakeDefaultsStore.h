#pragma once

#include "Platform/DefaultsStore.h"

#include <QMap>
#include <QMutex>
#include <QVariant>

namespace jotwell {

/// Settings in memory, with the types they were stored with. Any thread.
class FakeDefaultsStore : public DefaultsStore {
public:
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
    /// Nothing has been set since it was last waited for.
    [[nodiscard]] bool isSynchronized() const;

    [[nodiscard]] QStringList keys() const override;
    [[nodiscard]] std::optional<ValueType> storedType(const QString& key) const override;

private:
    [[nodiscard]] QVariant value(const QString& key) const;
    void setValue(const QString& key, const QVariant& value);

    mutable QMutex m_mutex;
    QMap<QString, QVariant> m_values;
    bool m_isSynchronized = true;
};

} // namespace jotwell
