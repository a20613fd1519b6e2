#pragma once

#include <QString>

#include <functional>

namespace jotwell {

/// One line that the program says of itself.
struct LogRecord {
    enum class Level {
        info,
        error,
        print ///< a plain line on standard output
    };

    QString category; ///< "TagIndex", "ContentProcessor", … ; "print" for plain lines
    Level level;
    QString message; ///< without its line end
};

using LogSink = std::function<void(const LogRecord&)>;

/// Puts another receiver in the place of the usual ones (standard output for plain lines, Qt's
/// message log under "com.jotwell.<category>" for the rest). An empty one brings them back. Comes
/// back when nothing is being logged to the old one any more. Any thread, but not from a receiver.
void setLogSink(LogSink sink);

/// Any thread.
void logInfo(const QString& category, const QString& message);
void logError(const QString& category, const QString& message);
void printLine(const QString& line);

} // namespace jotwell
