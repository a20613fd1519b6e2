#include "Support/Logging.h"

#include <QLoggingCategory>
#include <QMessageLogger>

#include <cstdio>

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

LogSink& currentSink()
{
    static LogSink sink = writeRecord;
    return sink;
}

} // namespace

void setLogSink(LogSink sink)
{
    currentSink() = sink ? std::move(sink) : writeRecord;
}

void logInfo(const QString& category, const QString& message)
{
    currentSink()({category, LogRecord::Level::info, message});
}

void logError(const QString& category, const QString& message)
{
    currentSink()({category, LogRecord::Level::error, message});
}

void printLine(const QString& line)
{
    currentSink()({QStringLiteral("print"), LogRecord::Level::print, line});
}

} // namespace jotwell
