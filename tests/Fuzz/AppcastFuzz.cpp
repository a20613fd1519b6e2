// A feed of any bytes: only a good signature lets one pass, and a passed one is read without harm.

#include "Fuzz/FuzzTarget.h"
#include "Platform/Updates/SignedFeeds.h"
#include "Platform/qt/Updates/Appcast.h"

namespace jotwell {

namespace {

// Nobody has its other half.
FeedKey foreignKey()
{
    return *FeedKey::fromBase64("lRMe9CULGrr4Q1DC3LhyNRv4vT4mQfzT8rLtB2kKQEA=");
}

void checkSignature(const QByteArray& feed)
{
    if (verifiedFeed(feed, foreignKey()))
        reportDifference("Verification", feed, "refused", "taken");
    static const SigningKey key;
    const auto verified = verifiedFeed(key.sign(feed), key.publicKey());
    const bool hasOneOfItsOwn = feed.contains("sparkle-signatures");
    if (!hasOneOfItsOwn)
        requireSame("What was signed", feed, feed, verified ? *verified : "refused");
    else if (verified)
        reportDifference("A second signature", feed, "refused", "taken");
}

void checkVersions(const QByteArray& feed)
{
    const auto appcast = parseAppcast(feed, QStringLiteral("linux"));
    if (!appcast)
        return;
    const QVersionNumber running(1);
    const auto update = newestUpdate(*appcast, running);
    for (const AppcastVersion& other : appcast->versions) {
        if (other.version > running && !update)
            reportDifference("The newest version", feed, "one", "none");
    }
    if (update && update->displayVersionString.isEmpty())
        reportDifference("The shown version", feed, "a text", "nothing");
}

} // namespace

} // namespace jotwell

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray feed(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    jotwell::checkSignature(feed);
    jotwell::checkVersions(feed);
    return 0;
}
