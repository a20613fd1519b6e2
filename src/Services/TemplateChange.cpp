#include "Services/TemplateChange.h"

#include <algorithm>

namespace jotwell {

namespace {

void edit(ObsidianTemplate& stored, const TemplateChange& change)
{
    if (change.fields & TemplateChange::name)
        stored.name = change.value.name;
    if (change.fields & TemplateChange::content)
        stored.content = change.value.content;
    if (change.fields & TemplateChange::showInDropdown)
        stored.showInDropdown = change.value.showInDropdown;
}

} // namespace

ObsidianTemplates applied(const TemplateChange& change, ObsidianTemplates templates)
{
    const auto stored =
        std::find_if(templates.begin(), templates.end(), [&change](const ObsidianTemplate& each) {
            return each.id == change.value.id;
        });
    const bool isStored = stored != templates.end();
    if (change.kind == TemplateChange::Kind::removed) {
        if (isStored)
            templates.erase(stored);
    } else if (!isStored) {
        templates.append(change.value);
    } else {
        edit(*stored, change);
    }
    return templates;
}

void append(QList<TemplateChange>& changes, const TemplateChange& change)
{
    constexpr auto edited = TemplateChange::Kind::edited;
    const bool joins = !changes.isEmpty() && change.kind == edited &&
                       changes.last().kind == edited && changes.last().value.id == change.value.id;
    if (!joins) {
        changes.append(change);
        return;
    }
    changes.last().fields |= change.fields;
    changes.last().value = change.value;
}

} // namespace jotwell
