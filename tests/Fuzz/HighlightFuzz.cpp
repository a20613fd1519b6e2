// Styles what stands behind the first line, whose words are the names of templates and folders.

#include "Fuzz/FuzzTarget.h"
#include "Support/TextUnits.h"
#include "Views/Editor/EmojiRanges.h"
#include "Views/Editor/HighlightReference.h"

#include <vector>

using namespace jotwell;

namespace {

// Two characters of no use of their own, for the halves that UTF-8 can't hold.
QString withLoneSurrogates(QString text)
{
    return text.replace(QChar(0xE000), QChar(0xD83D)).replace(QChar(0xE001), QChar(0xDE00));
}

QByteArray words(const std::string& text)
{
    return QByteArray::fromStdString(text);
}

void checkRules(const QByteArray& input, QStringView text, qsizetype limit)
{
    for (const MarkdownRule& rule : markdownRules())
        requireSame(rule.name.c_str(), input, words(described(text, rule.plain(text, limit))),
                    words(described(text, rule.quick(text.first(limit)))));
}

void checkSlashWords(const QByteArray& input, QStringView text, qsizetype limit)
{
    for (qsizetype cursor = 0; cursor <= text.size(); cursor += 1 + text.size() / 8) {
        const auto plain = plainSlashWordAt(text, limit, cursor);
        const auto quick = slashWordAt(text, limit, cursor);
        if (plain != quick)
            reportDifference("slash word", input, QByteArray::number(plain ? plain->location : -1),
                             QByteArray::number(quick ? quick->location : -1));
    }
}

void checkEmoji(const QByteArray& input, QStringView text)
{
    qsizetype end = -1;
    for (const TextRange& range : emojiRanges(text)) {
        if (range.location <= end || range.length < 1 || range.end() > text.size())
            reportDifference("emoji", input, "", words(described(text, emojiRanges(text))));
        end = range.end();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString input = withLoneSurrogates(fuzzText(data, size));
    const qsizetype end = input.indexOf(u'\n');
    const QStringList names = end < 0 ? QStringList() : input.first(end).split(u'|');
    // In room of its own size, where a sanitizer sees what is read behind it.
    const QStringView rest = QStringView(input).sliced(end + 1);
    const std::vector<char16_t> exact(rest.utf16(), rest.utf16() + rest.size());
    const QStringView text(exact.data(), static_cast<qsizetype>(exact.size()));
    const QByteArray shown = input.toUtf8();
    for (const qsizetype limit : {characterCount(text), text.size(), text.size() / 2}) {
        checkRules(shown, text, limit);
        checkSlashWords(shown, text, limit);
        requireSame("look", shown,
                    words(described(text, plainHighlight(text, limit, names, names))),
                    words(described(text, quickHighlight(text, limit, names, names))));
    }
    checkEmoji(shown, text);
    return 0;
}
