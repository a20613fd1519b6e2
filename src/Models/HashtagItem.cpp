#include "Models/HashtagItem.h"

namespace jotwell {

DropdownItem HashtagItem::row() const
{
    const QString notes = count == 1 ? QStringLiteral(" note") : QStringLiteral(" notes");
    return {tag, u'#' + tag, QStringLiteral("number"), QString::number(count) + notes};
}

} // namespace jotwell
