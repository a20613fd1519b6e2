#include "Index/SearchQueries.h"

#include "Vault/Vocabulary.h"

#include <algorithm>

namespace jotwell::bench {

namespace {

constexpr std::size_t firstTagRank = 200;

const Vocabulary& vocabulary()
{
    static const Vocabulary vocabulary;
    return vocabulary;
}

QString word(std::size_t rank, Script script = Script::plain)
{
    return QString::fromStdString(vocabulary().word(script, rank));
}

QString words(std::initializer_list<std::size_t> ranks)
{
    QStringList words;
    for (const std::size_t rank : ranks)
        words.append(word(rank));
    return words.join(u' ');
}

QStringList wordsOf(Script script, std::initializer_list<std::size_t> ranks)
{
    QStringList words;
    for (const std::size_t rank : ranks)
        words.append(word(rank, script));
    return words;
}

} // namespace

QStringList contentQueries()
{
    QStringList queries =
        wordsOf(Script::plain, {0, 3, 20, 100, 400, 1500, 5000, 12'000, 25'000, 39'000});
    queries += wordsOf(Script::umlauts, {4, 1504, 20'002});
    queries += wordsOf(Script::cyrillic, {2, 1500, 30'000});
    queries += wordsOf(Script::han, {1, 900, 20'000});
    queries += {words({0, 1}),       words({5, 900}),         words({2000, 15'000}),
                words({1, 2, 3, 4}), words({30'000, 35'000}), words({3, 3000, 30'000})};
    queries += {word(50).toUpper(), word(8000).toUpper(), word(40, Script::cyrillic).toUpper(),
                word(7000).left(4), word(11'000).mid(2)};
    queries += {QStringLiteral("a"),      QStringLiteral("e t"), QStringLiteral("st"),
                QStringLiteral("code"),   QStringLiteral("[ ]"), QStringLiteral("🚀"),
                QStringLiteral("2021-0"), QStringLiteral(".png")};
    queries += {QStringLiteral("q"), QStringLiteral("sequence"), QStringLiteral("quality"),
                word(0) + QStringLiteral(" quill"), QStringLiteral("żółq")};
    return queries;
}

QStringList nameQueries()
{
    const QString tag = u'#' + word(firstTagRank);
    const QString otherTag = u'#' + word(firstTagRank + 3);
    const QString rareTag = u'#' + word(firstTagRank + 550);
    return {word(0),
            word(40),
            word(900),
            word(20'000),
            words({1, 30}),
            QStringLiteral("md"),
            QStringLiteral("quality"),
            tag,
            rareTag,
            tag + u' ' + otherTag,
            tag + u' ' + word(2),
            QStringLiteral("#absent-q")};
}

QString longestTerm(const QString& query)
{
    const QStringList terms = query.split(u' ', Qt::SkipEmptyParts);
    return *std::max_element(terms.begin(), terms.end(), [](const auto& left, const auto& right) {
        return left.size() < right.size();
    });
}

} // namespace jotwell::bench
