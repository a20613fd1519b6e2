#include "Services/Input/TokenReplacement.h"

#include "Services/Input/AutomaticParameter.h"
#include "Services/Input/TemplateParameters.h"

#include <algorithm>

namespace jotwell {

namespace {

bool isInsidePair(QStringView text, qsizetype place)
{
    return place > 0 && place < text.size() && text[place].isLowSurrogate() &&
           text[place - 1].isHighSurrogate();
}

} // namespace

TextRange clamped(const TextRange& range, QStringView text)
{
    qsizetype start = std::clamp(range.location, qsizetype(0), text.size());
    // Written so that no sum can overflow.
    const qsizetype length = std::max(range.length, qsizetype(0));
    qsizetype end = range.location < 0
                        ? std::clamp(range.location + length, qsizetype(0), text.size())
                        : start + std::min(length, text.size() - start);
    if (isInsidePair(text, start))
        ++start;
    if (isInsidePair(text, end))
        --end;
    return {start, std::max(end - start, qsizetype(0))};
}

TokenCut cutAt(const QString& text, const TextRange& range)
{
    const TextRange token = clamped(range, text);
    return {text.first(token.location), text.sliced(token.location, token.length),
            text.sliced(token.end())};
}

TokenCut cutAtEnd(const QString& text, const QString& token)
{
    return {text.chopped(token.size()), token, QString()};
}

bool leavesNewNote(const TokenCut& cut, TokenOrigin origin)
{
    const QString newNote = rawValue(Command::newNote);
    if (origin == TokenOrigin::clicked)
        return cut.token == newNote;
    return cut.token.startsWith(u"/new") || (cut.before + cut.token + cut.after).contains(newNote);
}

QString newNoteText(const TokenCut& cut, const QString& templateName, const QStringList& names)
{
    const QString begin = cut.before + rawValue(Command::newNote);
    if (checkForValidTemplate(cut.after, names))
        return begin + u' ' + cut.after;
    return begin + parameterText(templateName) + u' ' + trimmedWhitespace(cut.after);
}

QString leavingText(const TokenCut& cut, TokenOrigin origin, Command command,
                    const QStringList& names)
{
    QString text = cut.before + rawValue(command);
    if (origin == TokenOrigin::typed)
        text += u' ';
    return removeTemplateParameters(text + cut.after, names);
}

QString searchNotesText(const TokenCut& cut)
{
    return cut.before + rawValue(Command::searchNotes) + u' ' + cut.after;
}

QString recentNotesText(const TokenCut& cut, const QString& folderName)
{
    return cut.before + rawValue(Command::recentNotes) + parameterText(folderName) + u' ' +
           trimmedWhitespace(cut.after);
}

} // namespace jotwell
