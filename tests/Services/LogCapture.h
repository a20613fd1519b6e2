#pragma once

#include "Support/Logging.h"

#include <QMutex>
#include <QStringList>

namespace jotwell {

/// Takes what the program logs for as long as it lives. Any thread may log.
class LogCapture {
public:
    LogCapture()
    {
        setLogSink([this](const LogRecord& record) {
            const QMutexLocker lock(&m_mutex);
            m_records.append(record);
        });
    }
    ~LogCapture() { setLogSink({}); }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    [[nodiscard]] QStringList infos() const { return messages(LogRecord::Level::info); }
    [[nodiscard]] QStringList errors() const { return messages(LogRecord::Level::error); }
    [[nodiscard]] QStringList prints() const { return messages(LogRecord::Level::print); }
    void clear()
    {
        const QMutexLocker lock(&m_mutex);
        m_records.clear();
    }

private:
    [[nodiscard]] QStringList messages(LogRecord::Level level) const
    {
        const QMutexLocker lock(&m_mutex);
        QStringList found;
        for (const LogRecord& record : m_records) {
            if (record.level == level)
                found.append(record.message);
        }
        return found;
    }

    mutable QMutex m_mutex;
    QList<LogRecord> m_records;
};

} // namespace jotwell
