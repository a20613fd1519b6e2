#pragma once

#include "Models/ObsidianTemplate.h"

namespace jotwell {

/// What the user has done to one of their own templates. It is applied to the list as it is stored
/// by then, so that whatever others have done to the rest of the list stays.
struct TemplateChange {
    enum class Kind { added, edited, removed };
    enum Field { name = 1, content = 2, showInDropdown = 4 };

    Kind kind = Kind::edited;
    ObsidianTemplate value; ///< after the change; of one that is removed the identifier counts
    int fields = 0;         ///< those that were edited

    bool operator==(const TemplateChange&) const = default;
};

/// An edited template that has gone from the list comes back at its end: the user's text counts
/// more than its removal.
[[nodiscard]] ObsidianTemplates applied(const TemplateChange& change, ObsidianTemplates templates);

/// Puts `change` behind the others, as one with the last of them if both are edits of one template.
void append(QList<TemplateChange>& changes, const TemplateChange& change);

} // namespace jotwell
