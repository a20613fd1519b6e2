#pragma once

#include "Platform/qt/Updates/FeedSignature.h"

#include <QByteArray>

#include <array>

namespace jotwell {

/// A key pair made from its seed: the same seed gives the same key.
class SigningKey {
public:
    explicit SigningKey(unsigned char seed = 1);

    [[nodiscard]] FeedKey publicKey() const;
    [[nodiscard]] QByteArray publicKeyText() const;
    [[nodiscard]] QByteArray signatureOf(const QByteArray& bytes) const;

    /// `content` with its signature behind it.
    [[nodiscard]] QByteArray sign(const QByteArray& content) const;

private:
    std::array<unsigned char, 32> m_public{};
    std::array<unsigned char, 64> m_secret{};
};

/// The comment that makes a feed of that many bytes a signed one.
[[nodiscard]] QByteArray signatureComment(const QByteArray& signature, qsizetype length);

/// An item of that version, with more elements if it needs them.
[[nodiscard]] QByteArray feedItem(const QByteArray& version, const QByteArray& more = {});
/// A feed without its signature.
[[nodiscard]] QByteArray feedOf(const QByteArray& items);

} // namespace jotwell
