#include "Services/Input/AutomaticParameter.h"

#include "Services/Input/CommandText.h"

namespace jotwell {

QString parameterText(const QString& name)
{
    return QStringLiteral("  $") + name;
}

bool needsParameter(const QString& text, Command command)
{
    return !text.contains(u'$') && containsCommand(text, command);
}

QString withParameter(const QString& text, Command command, const QString& name)
{
    const QString bare = rawValue(command);
    const QString whole = bare + parameterText(name);
    if (text.endsWith(bare))
        return text + parameterText(name);
    QString result = text;
    if (text.contains(bare + u' '))
        return result.replace(bare + u' ', whole + u' ');
    return result.replace(bare, whole);
}

} // namespace jotwell
