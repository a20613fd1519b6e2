#include "Fakes/FakeDefaultsStore.h"

namespace jotwell {

std::optional<QString> FakeDefaultsStore::string(const QString& key) const
{
    const QVariant stored = value(key);
    if (!stored.isValid() || stored.typeId() == QMetaType::QByteArray)
        return std::nullopt;
    return stored.toString();
}

std::optional<QByteArray> FakeDefaultsStore::data(const QString& key) const
{
    const QVariant stored = value(key);
    return stored.typeId() == QMetaType::QByteArray ? std::optional(stored.toByteArray())
                                                    : std::nullopt;
}

qint64 FakeDefaultsStore::integer(const QString& key) const
{
    return string(key) ? value(key).toLongLong() : 0;
}

bool FakeDefaultsStore::boolean(const QString& key) const
{
    return string(key) && value(key).toBool();
}

void FakeDefaultsStore::setString(const QString& key, const std::optional<QString>& value)
{
    setValue(key, value ? QVariant(*value) : QVariant());
}

void FakeDefaultsStore::setData(const QString& key, const QByteArray& value)
{
    setValue(key, value);
}

void FakeDefaultsStore::setInteger(const QString& key, qint64 value)
{
    setValue(key, value);
}

void FakeDefaultsStore::setBoolean(const QString& key, bool value)
{
    setValue(key, value);
}

void FakeDefaultsStore::remove(const QString& key)
{
    setValue(key, {});
}

void FakeDefaultsStore::synchronize()
{
    const QMutexLocker lock(&m_mutex);
    m_isSynchronized = true;
}

bool FakeDefaultsStore::isSynchronized() const
{
    const QMutexLocker lock(&m_mutex);
    return m_isSynchronized;
}

QStringList FakeDefaultsStore::keys() const
{
    const QMutexLocker lock(&m_mutex);
    return m_values.keys();
}

QVariant FakeDefaultsStore::value(const QString& key) const
{
    const QMutexLocker lock(&m_mutex);
    return m_values.value(key);
}

void FakeDefaultsStore::setValue(const QString& key, const QVariant& value)
{
    const QMutexLocker lock(&m_mutex);
    m_isSynchronized = false;
    if (value.isValid())
        m_values.insert(key, value);
    else
        m_values.remove(key);
}

std::optional<DefaultsStore::ValueType> FakeDefaultsStore::storedType(const QString& key) const
{
    switch (value(key).typeId()) {
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
