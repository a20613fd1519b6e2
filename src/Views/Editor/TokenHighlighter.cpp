#include "Views/Editor/TokenHighlighter.h"

#include "Models/Command.h"
#include "Views/Editor/AttributedText.h"
#include "Views/Editor/ReadyNames.h"
#include "Views/Editor/TextScan.h"

#include <algorithm>

namespace jotwell {

namespace {

constexpr FontStyle parameterFont{
    .family = FontFamily::monospaced, .size = 14, .weight = FontWeight::medium};
constexpr FontStyle hashtagFont{
    .family = FontFamily::monospaced, .size = 14, .weight = FontWeight::bold};

// The matches of (?:^|\s)(<mark>[\w-]+), with ^ only at the start of the text.
std::vector<TextRange> markedWords(QStringView text, char16_t mark)
{
    std::vector<TextRange> words;
    for (qsizetype place = find(text, mark, 0); place < text.size();
         place = find(text, mark, place + 1)) {
        if (place > 0 && !isSpace(text[place - 1].unicode()))
            continue;
        const qsizetype end = afterHyphenatedWord(text, place + 1);
        if (end > place + 1)
            words.push_back({place, end - place});
    }
    return words;
}

// Behind the first one of `command`; nothing if there is none.
std::optional<qsizetype> endOfFirst(QStringView text, const QString& command)
{
    for (qsizetype place = find(text, u'/', 0); place < text.size();
         place = find(text, u'/', place + 1)) {
        if (text.sliced(place).startsWith(command))
            return place + utf16Length(command);
    }
    return std::nullopt;
}

/// One of the two lists of names.
using NamesOf = ParameterNames& (ReadyNames::*)();

std::vector<TextRange> parametersFrom(QStringView text, qsizetype from, ReadyNames& ready,
                                      NamesOf kind)
{
    std::vector<TextRange> parameters;
    ParameterNames* names = nullptr;
    for (qsizetype place = find(text, u'$', from); place + 1 < text.size();
         place = find(text, u'$', place + 1)) {
        if (!names)
            names = &(ready.*kind)();
        if (const auto length = names->lengthAtStart(text.sliced(place + 1)))
            parameters.push_back({place, *length + 1});
    }
    return parameters;
}

std::vector<TextRange> parametersOf(Command command, QStringView text, qsizetype limit,
                                    ReadyNames& ready, NamesOf kind)
{
    const std::optional<qsizetype> from = endOfFirst(text, rawValue(command));
    if (!from)
        return {};
    return parametersFrom(text.first(limit), *from, ready, kind);
}

// One parameter may stand within another where names hold a "$"; nothing is drawn twice.
void styleParameters(AttributedText& to, const std::vector<TextRange>& parameters)
{
    qsizetype styled = 0;
    for (const TextRange& parameter : parameters) {
        const qsizetype start = std::max(styled, parameter.location);
        const TextRange rest{start, parameter.end() - start};
        styled = std::max(styled, parameter.end());
        to.setColor(rest, TextColor::systemGreen);
        to.setFont(rest, parameterFont);
        to.expand(rest);
    }
}

void styleCommand(AttributedText& to, const TextRange& command)
{
    to.setColor(command, TextColor::systemBlue);
    to.setFont(command, parameterFont);
    to.expand(command);
}

} // namespace

TokenRanges highlightTokens(AttributedText& to, QStringView text, qsizetype limit,
                            ReadyNames& names)
{
    const QStringView seen = text.first(limit);
    TokenRanges tokens;
    tokens.commands = markedWords(seen, u'/');
    for (const TextRange& command : tokens.commands)
        styleCommand(to, command);
    tokens.templates = parametersOf(Command::newNote, text, limit, names, &ReadyNames::templates);
    styleParameters(to, tokens.templates);
    const std::vector<TextRange> folders =
        parametersOf(Command::recentNotes, text, limit, names, &ReadyNames::folders);
    styleParameters(to, folders);
    tokens.templates.insert(tokens.templates.end(), folders.begin(), folders.end());
    tokens.hashtags = markedWords(seen, u'#');
    for (const TextRange& hashtag : tokens.hashtags) {
        to.setColor(hashtag, TextColor::text);
        to.setFont(hashtag, hashtagFont);
    }
    return tokens;
}

// The matches of (/[\w-]+) don't overlap: if the last one that begins up to the cursor ends before
// it, so do all others.
std::optional<TextRange> slashWordAt(QStringView text, qsizetype limit, qsizetype cursor)
{
    const QStringView seen = text.first(limit);
    qsizetype from = std::min(cursor, limit - 1);
    while (from >= 0) {
        const qsizetype slash = seen.lastIndexOf(u'/', from);
        if (slash < 0)
            break;
        const qsizetype end = afterHyphenatedWord(seen, slash + 1);
        if (end > slash + 1)
            return end >= cursor ? std::optional(TextRange{slash, end - slash}) : std::nullopt;
        from = slash - 1;
    }
    return std::nullopt;
}

} // namespace jotwell
