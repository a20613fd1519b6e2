#include "Platform/qt/IniDefaultsStore.h"

#include "Platform/FileCalls.h"
#include "Support/FileText.h"
#include "Support/Logging.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>

#include <cerrno>
#include <utility>

#include <sys/stat.h>

namespace jotwell {

using namespace std::chrono_literals;

namespace {

const QString logCategory = QStringLiteral("Settings");

std::chrono::nanoseconds timeOf(const timespec& time)
{
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

bool isTruthText(const QString& text)
{
    return text == u"true" || text == u"false";
}

bool isWholeNumber(const QString& text)
{
    bool ok = false;
    return QString::number(text.toLongLong(&ok)) == text && ok;
}

// The file is UTF-8, which has no halves of surrogate pairs: such text is stored as a record, whose
// texts QSettings writes unit by unit.
const QString textOfRecord = QStringLiteral("text");

QVariant storable(const QVariant& value)
{
    if (value.typeId() != QMetaType::QString || value.toString().isValidUtf16())
        return value;
    return QVariantMap{{textOfRecord, value}};
}

QVariant restored(const QVariant& stored)
{
    const bool isRecord = stored.typeId() == QMetaType::QVariantMap;
    const QVariant text = isRecord ? stored.toMap().value(textOfRecord) : QVariant();
    return text.typeId() == QMetaType::QString ? text : stored;
}

QMap<QString, QVariant> valuesOf(const QSettings& settings)
{
    QMap<QString, QVariant> values;
    for (const QString& key : settings.allKeys())
        values.insert(key, restored(settings.value(key)));
    return values;
}

// QSettings syncs what it writes; in the memory of the session that costs nothing.
QString scratchTemplate()
{
    const QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const bool isOfUse = QFileInfo(session).isDir() && QFileInfo(session).isWritable();
    return (isOfUse ? session : QDir::tempPath()) + QStringLiteral("/jotwell-XXXXXX");
}

bool put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

// By itself a QLockFile looks again after a tenth of a second, where a write takes a hundredth. A
// program that hangs isn't waited for.
void waitFor(QLockFile& lock)
{
    constexpr auto patience = 500ms;
    const QDeadlineTimer end(patience);
    while (!lock.tryLock(0ms) && lock.error() == QLockFile::LockFailedError && !end.hasExpired())
        QThread::msleep(2);
}

// QSettings counts a file that a full disk cut short as written, so what it wrote is read again,
// under another name that its cache doesn't know, before anybody trusts it.
std::optional<QByteArray> serialized(const QMap<QString, QVariant>& values)
{
    const QTemporaryDir scratch(scratchTemplate());
    const QString written = scratch.filePath(QStringLiteral("written.ini"));
    const QString checked = scratch.filePath(QStringLiteral("checked.ini"));
    {
        QSettings settings(written, QSettings::IniFormat);
        for (auto each = values.begin(); each != values.end(); ++each)
            settings.setValue(each.key(), storable(each.value()));
    }
    if (values.isEmpty())
        return QByteArray();
    if (!scratch.isValid() || !QFile::rename(written, checked))
        return std::nullopt;
    const QSettings settings(checked, QSettings::IniFormat);
    const bool isComplete =
        settings.status() == QSettings::NoError && settings.allKeys().size() == values.size();
    const auto bytes = readFile(checked);
    if (!isComplete || !bytes)
        return std::nullopt;
    for (auto each = values.begin(); each != values.end(); ++each) {
        if (settings.value(each.key()).toByteArray() != storable(each.value()).toByteArray())
            return std::nullopt;
    }
    return *bytes;
}

} // namespace

IniDefaultsStore::IniDefaultsStore(QString filePath, FileCalls& files)
    : m_filePath(std::move(filePath)), m_calls(files), m_file(files)
{
}

std::optional<QString> IniDefaultsStore::string(const QString& key) const
{
    const QVariant stored = value(key);
    switch (stored.typeId()) {
    case QMetaType::QString:
    case QMetaType::LongLong:
    case QMetaType::Bool:
        return stored.toString();
    default:
        return std::nullopt;
    }
}

std::optional<QByteArray> IniDefaultsStore::data(const QString& key) const
{
    const QVariant stored = value(key);
    if (stored.typeId() != QMetaType::QByteArray)
        return std::nullopt;
    return stored.toByteArray();
}

qint64 IniDefaultsStore::integer(const QString& key) const
{
    const auto text = string(key);
    if (text && isTruthText(*text))
        return *text == u"true" ? 1 : 0;
    return text ? text->trimmed().toLongLong() : 0;
}

bool IniDefaultsStore::boolean(const QString& key) const
{
    const QString text = string(key).value_or(QString()).trimmed().toLower();
    return text == u"true" || text == u"yes" || text.toLongLong() != 0;
}

void IniDefaultsStore::setString(const QString& key, const std::optional<QString>& value)
{
    setValue(key, value ? QVariant(*value) : QVariant());
}

void IniDefaultsStore::setData(const QString& key, const QByteArray& value)
{
    setValue(key, value);
}

void IniDefaultsStore::setInteger(const QString& key, qint64 value)
{
    setValue(key, QVariant::fromValue(value));
}

void IniDefaultsStore::setBoolean(const QString& key, bool value)
{
    setValue(key, value);
}

void IniDefaultsStore::remove(const QString& key)
{
    setValue(key, QVariant());
}

void IniDefaultsStore::synchronize()
{
    m_writer.wait();
}

QStringList IniDefaultsStore::keys() const
{
    const std::scoped_lock lock(m_mutex);
    load();
    return mergedContent().values.keys();
}

std::optional<DefaultsStore::ValueType> IniDefaultsStore::storedType(const QString& key) const
{
    const QVariant stored = value(key);
    if (stored.typeId() == QMetaType::QByteArray)
        return ValueType::data;
    const auto text = string(key);
    if (!text)
        return std::nullopt;
    // The file holds nothing but text: numbers and truth values are told by their form.
    if (isTruthText(*text))
        return ValueType::boolean;
    return isWholeNumber(*text) ? ValueType::integer : ValueType::string;
}

QVariant IniDefaultsStore::value(const QString& key) const
{
    const std::scoped_lock lock(m_mutex);
    for (const Values* const ours : {&m_unsaved, &m_beingSaved}) {
        const auto found = ours->find(key);
        if (found != ours->end())
            return *found;
    }
    load();
    return m_content.values.value(key);
}

void IniDefaultsStore::setValue(const QString& key, const QVariant& value)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_unsaved.insert(key, value);
    }
    m_writer.ask();
}

void IniDefaultsStore::write()
{
    if (!hasUnsaved())
        return; // an earlier write has taken it along
    makeFolder();
    // Two programs that write at once must not undo one another's keys.
    QLockFile fileLock(m_filePath + QStringLiteral(".lock"));
    waitFor(fileLock);
    finishSave(save(takeUnsaved()));
}

bool IniDefaultsStore::hasUnsaved() const
{
    const std::scoped_lock lock(m_mutex);
    return !m_unsaved.isEmpty();
}

IniDefaultsStore::Content IniDefaultsStore::takeUnsaved()
{
    const std::scoped_lock lock(m_mutex);
    load();
    m_beingSaved = std::exchange(m_unsaved, {});
    return mergedContent();
}

// What stands in the file now is read from there; what doesn't waits on, unless it was set again.
void IniDefaultsStore::finishSave(bool isSaved)
{
    const std::scoped_lock lock(m_mutex);
    if (!isSaved) {
        m_beingSaved.insert(m_unsaved);
        m_unsaved = m_beingSaved;
    }
    m_beingSaved.clear();
}

void IniDefaultsStore::makeFolder() const
{
    const QString folder = QFileInfo(m_filePath).absolutePath();
    QDir().mkpath(QFileInfo(folder).absolutePath());
    ::mkdir(QFile::encodeName(folder).constData(), S_IRWXU);
}

void IniDefaultsStore::load() const
{
    const FileIdentity identity = identityOnDisk();
    if (identity == m_identity && m_isSettled)
        return;
    rememberIdentity(identity);
    m_content = identity.size < 0 ? Content() : readContent();
}

// QSettings remembers what a file of that size and time held, so that it is given a copy under a
// name that it doesn't know; the file itself only where there is no room for one.
IniDefaultsStore::Content IniDefaultsStore::readContent() const
{
    const auto bytes = readFile(m_filePath);
    const QTemporaryDir scratch(scratchTemplate());
    const QString copy = scratch.filePath(QStringLiteral("copy.ini"));
    const QSettings settings(bytes && put(copy, *bytes) ? copy : m_filePath, QSettings::IniFormat);
    Content content;
    content.values = valuesOf(settings);
    content.isDamaged = settings.status() == QSettings::FormatError;
    content.isReadable = settings.status() != QSettings::AccessError;
    return content;
}

IniDefaultsStore::Content IniDefaultsStore::mergedContent() const
{
    Content merged = m_content;
    for (const Values* const ours : {&m_beingSaved, &m_unsaved}) {
        for (auto each = ours->begin(); each != ours->end(); ++each) {
            if (each->isValid())
                merged.values.insert(each.key(), *each);
            else
                merged.values.remove(each.key());
        }
    }
    return merged;
}

bool IniDefaultsStore::save(const Content& content) const
{
    const auto bytes = serialized(content.values);
    const auto written = bytes ? replaceFile(*bytes, content) : SystemError{ENOSPC};
    if (!written)
        logError(logCategory,
                 QStringLiteral("The settings can't be written: ") + written.error().description());
    return static_cast<bool>(written);
}

// What couldn't be read may be worth something to its owner: a file that can't be opened stays as
// it is, and a damaged one is moved aside first.
Result<void, SystemError> IniDefaultsStore::replaceFile(const QByteArray& bytes,
                                                        const Content& content) const
{
    if (!content.isReadable)
        return SystemError{EACCES};
    if (!content.isDamaged)
        return m_file.write(m_filePath, bytes, AtomicFile::Permissions::ownerOnly);
    const QByteArray path = QFile::encodeName(m_filePath);
    const QByteArray aside = QFile::encodeName(freeNameForDamagedFile());
    if (m_calls.rename(path.constData(), aside.constData()) != 0)
        return SystemError::last();
    auto written = m_file.write(m_filePath, bytes, AtomicFile::Permissions::ownerOnly);
    if (!written)
        m_calls.rename(aside.constData(), path.constData());
    return written;
}

QString IniDefaultsStore::freeNameForDamagedFile() const
{
    QString name = m_filePath + QStringLiteral(".damaged");
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = m_filePath + QStringLiteral(".damaged-%1").arg(number);
    return name;
}

IniDefaultsStore::FileIdentity IniDefaultsStore::identityOnDisk() const
{
    struct stat status = {};
    if (::stat(QFile::encodeName(m_filePath).constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    return {status.st_dev, status.st_ino, status.st_size, timeOf(status.st_mtim),
            timeOf(status.st_ctim)};
}

// A change within the same tick of the file system's clock would look like no change.
void IniDefaultsStore::rememberIdentity(const FileIdentity& identity) const
{
    constexpr auto tick = 20ms;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    m_identity = identity;
    m_isSettled = identity.size < 0 || std::chrono::abs(now - identity.changed) > tick;
}

} // namespace jotwell
