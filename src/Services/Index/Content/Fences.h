#pragma once

#include <QByteArrayView>

#include <optional>

namespace jotwell {

/// A fenced block: where it stands, and its parts.
struct Fence {
    const char* begin = nullptr;
    const char* end = nullptr;
    std::optional<QByteArrayView> language;
    QByteArrayView content;
};

/// Goes through the fenced blocks of a text: three backticks, a word or none, a line feed, and the
/// next three backticks, wherever they stand. Linear in all: what isn't closed ends the search.
class Fences {
public:
    explicit Fences(QByteArrayView text) : m_place(text.begin()), m_end(text.end()) {}

    [[nodiscard]] std::optional<Fence> next();

private:
    const char* m_place;
    const char* m_end;
};

} // namespace jotwell
