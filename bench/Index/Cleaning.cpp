#include "Index/Cleaning.h"

#include "Index/IndexJobs.h"
#include "Reference/BareVault.h"

#include "Services/ContentProcessor.h"
#include "Services/ContentReference.h"
#include "Services/Index/Content/NoteTags.h"

#include <QStringList>

namespace jotwell::bench {

std::size_t byteCount(const Texts& texts)
{
    std::size_t sum = 0;
    for (const std::string& text : texts)
        sum += text.size();
    return sum;
}

Samples::Clock::duration timeToClean(const Texts& texts)
{
    qsizetype found = 0;
    const auto begin = Samples::Clock::now();
    for (const std::string& text : texts) {
        const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
        found += ContentProcessor::cleanedContent(bytes).wordCount;
        found += extractFrontmatterTags(bytes).size() + extractContentTags(bytes).size();
    }
    const auto time = Samples::Clock::now() - begin;
    require(found > 0, "cleaned texts have words");
    return time;
}

namespace {

constexpr std::size_t notesForIcu = 1000; // it is slow

/// Evenly spread over all.
Texts someOf(const Texts& texts)
{
    Texts some;
    for (std::size_t place = 0; place < texts.size(); place += texts.size() / notesForIcu)
        some.push_back(texts[place]);
    return some;
}

QStringList asUtf16(const Texts& texts)
{
    QStringList result;
    for (const std::string& text : texts)
        result.append(QString::fromStdString(text));
    return result;
}

Samples::Clock::duration timeOfIcu(const QStringList& texts)
{
    qsizetype found = 0;
    const auto begin = Samples::Clock::now();
    for (const QString& text : texts) {
        found += reference::processContent(text).wordCount;
        found += reference::extractFrontmatterTags(text).size();
        found += reference::extractContentTags(text).size();
    }
    const auto time = Samples::Clock::now() - begin;
    require(found > 0, "texts cleaned by ICU have words");
    return time;
}

double megabytesPerSecond(std::size_t bytes, const Samples& samples)
{
    return static_cast<double>(bytes) / 1e6 / (samples.percentile(0.5) / 1000);
}

} // namespace

void measureCleaning(const VaultUnderTest& vault)
{
    const Texts texts = noteTexts(vault.bytes());
    const Texts some = someOf(texts);
    const QStringList someUtf16 = asUtf16(some);
    Samples all;
    Samples ours;
    Samples icu;
    for (int round = vault.rounds(3, 5); round > 0; --round) {
        all.add(timeToClean(texts));
        ours.add(timeToClean(some));
        icu.add(timeOfIcu(someUtf16));
    }
    printFigure("cleaning", megabytesPerSecond(byteCount(texts), all));
    printFigure("cleaning of some", megabytesPerSecond(byteCount(some), ours));
    printFigure("cleaning of some reference", megabytesPerSecond(byteCount(some), icu));
}

} // namespace jotwell::bench
