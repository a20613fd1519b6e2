#pragma once

#include <QString>
#include <QStringView>

#include <chrono>

namespace jotwell {

// Dates as the user reads them: in the locale of their dates (LC_ALL, LC_TIME, LANG, in this order)
// and in the time zone that the machine has at the moment of the call. Any thread.

/// A moment in a pattern of Unicode's date field symbols, "yyyy-MM-dd HHmmss".
[[nodiscard]] QString dateText(std::chrono::system_clock::time_point moment, QStringView pattern);

/// Date of medium length and time of short length, "Mar 5, 2024, 2:46 PM".
[[nodiscard]] QString mediumDateShortTime(std::chrono::system_clock::time_point moment);

/// "5 minutes ago", or "5m ago" where the language has such a form.
enum class UnitsStyle { full, abbreviated };

/// How far a moment lies from `now` in its largest full unit by the calendar, "5 minutes ago" or
/// "in 2 hours". Less than a second counts as past.
[[nodiscard]] QString relativeDate(std::chrono::system_clock::time_point moment,
                                   std::chrono::system_clock::time_point now,
                                   UnitsStyle style = UnitsStyle::full);

} // namespace jotwell
