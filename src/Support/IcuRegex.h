#pragma once

#include "Support/TextUnits.h"

#include <unicode/regex.h>

#include <QString>
#include <QStringView>

#include <memory>
#include <optional>
#include <vector>

namespace jotwell {

/// One match of a pattern, with the ranges of its groups in UTF-16 units of the searched text.
/// Group 0 is the whole match; a group that took no part has no range.
struct RegexMatch {
    std::vector<std::optional<TextRange>> groups;

    [[nodiscard]] TextRange range() const { return *groups.front(); }
};

/// A compiled regular expression in the ICU dialect. A search in a limited range doesn't see the
/// text behind it, and `^`, `$` and `\b` hold at the range's ends. May be used from any thread.
class IcuRegex {
public:
    /// Gives nothing if the pattern doesn't compile.
    [[nodiscard]] static std::optional<IcuRegex> compile(QStringView pattern);
    /// For patterns of the program itself; a broken one is a programming error.
    explicit IcuRegex(QStringView pattern);

    /// A pattern that matches exactly `text`, whatever it holds.
    [[nodiscard]] static QString escaped(QStringView text);

    [[nodiscard]] std::optional<RegexMatch> firstMatch(QStringView text) const;
    [[nodiscard]] std::optional<RegexMatch> firstMatch(QStringView text, TextRange range) const;
    [[nodiscard]] std::vector<RegexMatch> matches(QStringView text, TextRange range) const;

    /// `text` with every match inside `range` replaced by `replacement`, taken literally.
    [[nodiscard]] QString replaced(QStringView text, TextRange range,
                                   QStringView replacement) const;

private:
    explicit IcuRegex(std::shared_ptr<const icu::RegexPattern> pattern);

    std::shared_ptr<const icu::RegexPattern> m_pattern;
};

} // namespace jotwell
