#include "Models/FolderItem.h"

namespace jotwell {

DropdownItem FolderItem::row() const
{
    return {name, name, QStringLiteral("folder"), QStringLiteral("Vault folder")};
}

} // namespace jotwell
