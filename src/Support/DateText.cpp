#include "Support/DateText.h"

#include <unicode/datefmt.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace jotwell {

namespace {

icu::Locale dateLocale()
{
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const char* set = std::getenv(variable);
        const std::string_view name = set ? set : "";
        if (name.empty())
            continue;
        if (name == "C" || name == "POSIX" || name.starts_with("C."))
            return icu::Locale("en_US_POSIX");
        return icu::Locale::createFromName(set);
    }
    return icu::Locale("en_US_POSIX");
}

QString formatted(icu::DateFormat* owned, std::chrono::system_clock::time_point moment)
{
    const std::unique_ptr<icu::DateFormat> format(owned);
    if (!format)
        return {};
    format->adoptTimeZone(icu::TimeZone::detectHostTimeZone());
    using Milliseconds = std::chrono::duration<UDate, std::milli>;
    icu::UnicodeString text;
    format->format(std::chrono::floor<Milliseconds>(moment).time_since_epoch().count(), text);
    return QString(reinterpret_cast<const QChar*>(text.getBuffer()), text.length());
}

} // namespace

QString dateText(std::chrono::system_clock::time_point moment, QStringView pattern)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString fields(reinterpret_cast<const char16_t*>(pattern.utf16()),
                                    static_cast<int32_t>(pattern.size()));
    return formatted(new icu::SimpleDateFormat(fields, dateLocale(), status), moment);
}

QString mediumDateShortTime(std::chrono::system_clock::time_point moment)
{
    return formatted(icu::DateFormat::createDateTimeInstance(icu::DateFormat::kMedium,
                                                             icu::DateFormat::kShort, dateLocale()),
                     moment);
}

} // namespace jotwell
