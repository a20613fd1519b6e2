#include "Support/IcuRegex.h"

#include <unicode/unistr.h>

namespace jotwell {

namespace {

icu::UnicodeString aliased(QStringView text)
{
    return icu::UnicodeString(false, reinterpret_cast<const char16_t*>(text.utf16()),
                              static_cast<int32_t>(text.size()));
}

RegexMatch currentMatch(const icu::RegexMatcher& matcher)
{
    RegexMatch match;
    UErrorCode status = U_ZERO_ERROR;
    for (int32_t group = 0; group <= matcher.groupCount(); ++group) {
        const int64_t start = matcher.start64(group, status);
        if (start < 0)
            match.groups.emplace_back();
        else
            match.groups.emplace_back(TextRange{start, matcher.end64(group, status) - start});
    }
    return match;
}

// Calls `found` for each match from the first on, until it gives false.
template <typename Found>
void scan(const icu::RegexPattern& pattern, QStringView text, TextRange range, Found found)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString input = aliased(text);
    const std::unique_ptr<icu::RegexMatcher> matcher(pattern.matcher(input, status));
    if (U_FAILURE(status))
        return;
    matcher->region(range.location, range.end(), status);
    while (U_SUCCESS(status) && matcher->find(status) && found(currentMatch(*matcher))) {
    }
}

} // namespace

std::optional<IcuRegex> IcuRegex::compile(QStringView pattern)
{
    UErrorCode status = U_ZERO_ERROR;
    UParseError where;
    std::shared_ptr<const icu::RegexPattern> compiled(
        icu::RegexPattern::compile(aliased(pattern), 0, where, status));
    if (U_FAILURE(status))
        return std::nullopt;
    return IcuRegex(std::move(compiled));
}

IcuRegex::IcuRegex(QStringView pattern) : IcuRegex(compile(pattern).value()) {}

IcuRegex::IcuRegex(std::shared_ptr<const icu::RegexPattern> pattern) : m_pattern(std::move(pattern))
{
}

QString IcuRegex::escaped(QStringView text)
{
    QString pattern;
    pattern.reserve(text.size());
    for (const QChar unit : text) {
        const bool isAsciiSymbol = unit.unicode() > 0x20 && unit.unicode() < 0x7F &&
                                   !unit.isLetterOrNumber() && unit != u'_';
        if (isAsciiSymbol)
            pattern += u'\\';
        pattern += unit;
    }
    return pattern;
}

std::optional<RegexMatch> IcuRegex::firstMatch(QStringView text) const
{
    return firstMatch(text, TextRange{0, utf16Length(text)});
}

std::optional<RegexMatch> IcuRegex::firstMatch(QStringView text, TextRange range) const
{
    std::optional<RegexMatch> first;
    scan(*m_pattern, text, range, [&first](RegexMatch match) {
        first = std::move(match);
        return false;
    });
    return first;
}

std::vector<RegexMatch> IcuRegex::matches(QStringView text, TextRange range) const
{
    std::vector<RegexMatch> all;
    scan(*m_pattern, text, range, [&all](RegexMatch match) {
        all.push_back(std::move(match));
        return true;
    });
    return all;
}

QString IcuRegex::replaced(QStringView text, TextRange range, QStringView replacement) const
{
    QString result;
    qsizetype copied = 0;
    for (const RegexMatch& match : matches(text, range)) {
        result += text.sliced(copied, match.range().location - copied);
        result += replacement;
        copied = match.range().end();
    }
    result += text.sliced(copied);
    return result;
}

} // namespace jotwell
