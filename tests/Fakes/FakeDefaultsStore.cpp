#include "Fakes/FakeDefaultsStore.h"

namespace jotwell {

std::optional<QString> FakeDefaultsStore::string(const QString& key) const
{
    const QVariant value = m_values.value(key);
    if (!value.isValid() || value.typeId() == QMetaType::QByteArray)
        return std::nullopt;
    return value.toString();
}

std::optional<QByteArray> FakeDefaultsStore::data(const QString& key) const
{
    const QVariant value = m_values.value(key);
    return value.typeId() == QMetaType::QByteArray ? std::optional(value.toByteArray())
                                                   : std::nullopt;
}

qint64 FakeDefaultsStore::integer(const QString& key) const
{
    return string(key) ? m_values.value(key).toLongLong() : 0;
}

bool FakeDefaultsStore::boolean(const QString& key) const
{
    return string(key) && m_values.value(key).toBool();
}

void FakeDefaultsStore::setString(const QString& key, const std::optional<QString>& value)
{
    if (value)
        m_values.insert(key, *value);
    else
        m_values.remove(key);
}

void FakeDefaultsStore::setData(const QString& key, const QByteArray& value)
{
    m_values.insert(key, value);
}

void FakeDefaultsStore::setInteger(const QString& key, qint64 value)
{
    m_values.insert(key, value);
}

void FakeDefaultsStore::setBoolean(const QString& key, bool value)
{
    m_values.insert(key, value);
}

void FakeDefaultsStore::remove(const QString& key)
{
    m_values.remove(key);
}

std::optional<DefaultsStore::ValueType> FakeDefaultsStore::storedType(const QString& key) const
{
    switch (m_values.value(key).typeId()) {
    case QMetaType::QString:
        return ValueType::string;
    case QMetaType::QByteArray:
        return ValueType::data;
    case QMetaType::LongLong:
        return ValueType::integer;
    case QMetaType::Bool:
        return ValueType::boolean;
    default:
        return std::nullopt;
    }
}

} // namespace jotwell
