#include "Support/Logging.h"

#include <QLoggingCategory>
#include <QMessageLogger>

#include <cstdio>
#include <mutex>
#include <shared_mutex>

namespace jotwell {

namespace {

void writeRecord(const LogRecord& record)
{
    if (record.level == LogRecord::Level::print) {
        const QByteArray line = record.message.toUtf8() + '\n';
        std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stdout);
        std::fflush(stdout);
        return;
    }
    const QByteArray name = "com.jotwell." + record.category.toUtf8();
    const QLoggingCategory category(name.constData());
    if (record.level == LogRecord::Level::error)
        qCCritical(category).noquote() << record.message;
    else
        qCInfo(category).noquote() << record.message;
}

struct CurrentSink {
    std::shared_mutex mutex;
    LogSink sink = writeRecord;
};

CurrentSink& current()
{
    static CurrentSink current;
    return current;
}

void record(const LogRecord& record)
{
    const std::shared_lock lock(current().mutex);
    current().sink(record);
}

} // namespace

void setLogSink(LogSink sink)
{
    const std::unique_lock lock(current().mutex);
    current().sink = sink ? std::move(sink) : writeRecord;
}

void logInfo(const QString& category, const QString& message)
{
    record({category, LogRecord::Level::info, message});
}

void logError(const QString& category, const QString& message)
{
    record({category, LogRecord::Level::error, message});
}

void printLine(const QString& line)
{
    record({QStringLiteral("print"), LogRecord::Level::print, line});
}

} // namespace jotwell
