#include "Support/DateText.h"

#include <unicode/calendar.h>
#include <unicode/datefmt.h>
#include <unicode/reldatefmt.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include <array>
#include <memory>
#include <string>
#include <unordered_map>

namespace jotwell {

namespace {

icu::Locale dateLocale()
{
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const QByteArray name = qgetenv(variable); // unlike getenv, safe beside a qputenv
        if (name.isEmpty())
            continue;
        if (name == "C" || name == "POSIX" || name.startsWith("C."))
            return icu::Locale("en_US_POSIX");
        return icu::Locale::createFromName(name.constData());
    }
    return icu::Locale("en_US_POSIX");
}

/// What a formatter depends on: the user may change either while the program runs.
struct Place {
    icu::Locale locale = dateLocale();
    std::unique_ptr<icu::TimeZone> zone{icu::TimeZone::detectHostTimeZone()};

    [[nodiscard]] std::string name() const
    {
        icu::UnicodeString zoneId;
        std::string name = locale.getName();
        name += ' ';
        return zone->getID(zoneId).toUTF8String(name);
    }
};

// Making a formatter takes fifty times as long as using it, and none may be used by two threads.
template <typename Make>
const icu::DateFormat* formatter(const std::string& kind, Make make)
{
    thread_local std::unordered_map<std::string, std::unique_ptr<icu::DateFormat>> made;
    const Place place;
    auto& format = made[kind + ' ' + place.name()];
    if (!format) {
        format.reset(make(place.locale));
        if (format)
            format->setTimeZone(*place.zone);
    }
    return format.get();
}

UDate date(std::chrono::system_clock::time_point moment)
{
    using Milliseconds = std::chrono::duration<int64_t, std::milli>;
    return static_cast<UDate>(std::chrono::floor<Milliseconds>(moment).time_since_epoch().count());
}

QString qString(const icu::UnicodeString& text)
{
    return QString(reinterpret_cast<const QChar*>(text.getBuffer()), text.length());
}

QString formatted(const icu::DateFormat* format, std::chrono::system_clock::time_point moment)
{
    if (!format)
        return {};
    icu::UnicodeString text;
    format->format(date(moment), text);
    return qString(text);
}

struct Unit {
    UCalendarDateFields field;
    URelativeDateTimeUnit unit;
};

constexpr std::array units{
    Unit{UCAL_YEAR, UDAT_REL_UNIT_YEAR},         Unit{UCAL_MONTH, UDAT_REL_UNIT_MONTH},
    Unit{UCAL_WEEK_OF_YEAR, UDAT_REL_UNIT_WEEK}, Unit{UCAL_DATE, UDAT_REL_UNIT_DAY},
    Unit{UCAL_HOUR, UDAT_REL_UNIT_HOUR},         Unit{UCAL_MINUTE, UDAT_REL_UNIT_MINUTE},
    Unit{UCAL_SECOND, UDAT_REL_UNIT_SECOND}};

struct Difference {
    double count = -0.0;
    URelativeDateTimeUnit unit = UDAT_REL_UNIT_SECOND;
};

/// In the first of the units that the two are apart by; a difference of no second is past.
Difference difference(icu::Calendar& now, UDate moment, UErrorCode& status)
{
    for (const Unit& each : units) {
        if (const int32_t count = now.fieldDifference(moment, each.field, status))
            return {static_cast<double>(count), each.unit};
    }
    return {};
}

} // namespace

QString dateText(std::chrono::system_clock::time_point moment, QStringView pattern)
{
    const auto make = [pattern](const icu::Locale& locale) -> icu::DateFormat* {
        UErrorCode status = U_ZERO_ERROR;
        const icu::UnicodeString fields(reinterpret_cast<const char16_t*>(pattern.utf16()),
                                        static_cast<int32_t>(pattern.size()));
        return new icu::SimpleDateFormat(fields, locale, status);
    };
    return formatted(formatter(pattern.toString().toStdString(), make), moment);
}

QString mediumDateShortTime(std::chrono::system_clock::time_point moment)
{
    const auto make = [](const icu::Locale& locale) {
        return icu::DateFormat::createDateTimeInstance(icu::DateFormat::kMedium,
                                                       icu::DateFormat::kShort, locale);
    };
    return formatted(formatter("medium date, short time", make), moment);
}

QString relativeDate(std::chrono::system_clock::time_point moment,
                     std::chrono::system_clock::time_point now, UnitsStyle style)
{
    const Place place;
    const auto units = style == UnitsStyle::full ? UDAT_STYLE_LONG : UDAT_STYLE_NARROW;
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> calendar(
        icu::Calendar::createInstance(*place.zone, place.locale, status));
    const icu::RelativeDateTimeFormatter format(place.locale, nullptr, units,
                                                UDISPCTX_CAPITALIZATION_NONE, status);
    if (U_FAILURE(status))
        return {};
    calendar->setTime(date(now), status);
    const Difference apart = difference(*calendar, date(moment), status);
    icu::UnicodeString text;
    format.formatNumeric(apart.count, apart.unit, text, status);
    return qString(text);
}

} // namespace jotwell
