#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace jotwell {

/// Where the program and its reference part over a text. Both are shown as UTF-8.
struct ContentDifference {
    const char* rule;
    QByteArray expected;
    QByteArray actual;
};

/// The first among all operations of ContentProcessor, each on `text` itself.
[[nodiscard]] std::optional<ContentDifference> contentDifference(const QString& text);

/// The first among the tag rules of raw texts.
[[nodiscard]] std::optional<ContentDifference> tagDifference(const QString& text);

} // namespace jotwell
