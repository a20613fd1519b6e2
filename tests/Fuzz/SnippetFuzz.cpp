// Looks for what stands in the first line in the rest, and cuts a snippet out of it.

#include "Fuzz/FuzzTarget.h"
#include "Services/Index/Search/LowercaseMatcher.h"
#include "Services/Index/Search/SearchReference.h"
#include "Services/Index/Search/SearchSnippet.h"

#include <vector>

using namespace jotwell;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString input = fuzzText(data, size);
    const qsizetype end = input.indexOf(u'\n');
    const QString query = end < 0 ? input : input.first(end);
    const QString text = input.sliced(end + 1);
    // In room of its own size, where a sanitizer sees what is read behind it.
    const QByteArray utf8 = text.toUtf8();
    const std::vector<char> exact(utf8.begin(), utf8.end());
    const QByteArrayView bytes(exact.data(), static_cast<qsizetype>(exact.size()));
    QStringList terms = plainContentTerms(query);
    terms.append(query);
    for (const QString& term : terms) {
        const bool isThere = plainIsIn(text, term);
        if (LowercaseMatcher(term).isIn(bytes) != isThere)
            reportDifference(isThere ? "not found" : "found", input.toUtf8(), utf8, term.toUtf8());
    }
    requireSame("snippet", input.toUtf8(), plainSnippet(text, query).toUtf8(),
                createSimpleSnippet(bytes, query).toUtf8());
    return 0;
}
