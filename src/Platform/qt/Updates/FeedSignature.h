#pragma once

#include "Support/Result.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <optional>

namespace jotwell {

/// The Ed25519 key that a feed is to be signed with.
class FeedKey {
public:
    static constexpr qsizetype length = 32;

    /// None if `text` isn't exactly a key in Base64.
    [[nodiscard]] static std::optional<FeedKey> fromBase64(const QByteArray& text);

    [[nodiscard]] const unsigned char* data() const { return m_bytes.data(); }

private:
    std::array<unsigned char, length> m_bytes{};
};

/// The signed part of a feed: all that stands before its signature, which is a comment at the end.
/// A feed without exactly one good signature gives the reason instead, and nothing else of it was
/// looked at. Any thread.
[[nodiscard]] Result<QByteArray, QString> verifiedFeed(const QByteArray& feed, const FeedKey& key);

} // namespace jotwell
