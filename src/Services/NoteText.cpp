#include "Services/NoteText.h"

#include "Models/Command.h"
#include "Support/DateText.h"
#include "Support/IcuRegex.h"
#include "Support/TextUnits.h"

namespace jotwell {

namespace {

std::optional<IcuRegex> parameterPattern(const QString& templateName)
{
    return IcuRegex::compile(QStringLiteral("\\$") + IcuRegex::escaped(templateName) +
                             QStringLiteral("\\b"));
}

QString withoutTemplateParameter(const QString& text, const QStringList& templateNames)
{
    // The number of characters bounds the search in UTF-16 units: behind many emoji a parameter at
    // the end of the text stays.
    const TextRange searched{0, characterCount(text)};
    for (const QString& name : templateNames) {
        if (!text.contains(u'$' + name)) // spares most names their pattern
            continue;
        const auto pattern = parameterPattern(name);
        if (pattern && pattern->firstMatch(text, searched))
            return pattern->replaced(text, searched, u"");
    }
    return text;
}

} // namespace

QString extractContent(const QString& text, const QStringList& templateNames)
{
    QString content = text;
    const QString command = rawValue(Command::newNote);
    if (const qsizetype found = content.indexOf(command); found >= 0)
        content.remove(found, command.size());
    return trimmedWhitespaceAndNewlines(withoutTemplateParameter(content, templateNames));
}

QString generateTitle(const QString& content, Clock::TimePoint now)
{
    const QStringView line = firstLine(content);
    return line.isEmpty() ? QStringLiteral("Note ") + dateText(now, u"HH:mm") : line.toString();
}

QString createNoteContent(const QString& title, const QString& content,
                          const ObsidianTemplate& noteTemplate, Clock::TimePoint now)
{
    QString note = noteTemplate.content;
    note.replace(QStringLiteral("{{title}}"), title);
    note.replace(QStringLiteral("{{content}}"), content);
    note.replace(QStringLiteral("{{date}}"), mediumDateShortTime(now));
    return note;
}

QString generateFilename(const QString& title, Clock::TimePoint now)
{
    static const IcuRegex forbidden(u"[/\\?%*:|\"<>]");
    const QString safe = forbidden.replaced(title, TextRange{0, utf16Length(title)}, u"-");
    return trimmedWhitespaceAndNewlines(safe) + QStringLiteral(" - ") +
           dateText(now, u"yyyy-MM-dd HHmmss") + QStringLiteral(".md");
}

} // namespace jotwell
