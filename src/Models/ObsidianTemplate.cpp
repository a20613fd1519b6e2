#include "Models/ObsidianTemplate.h"

namespace jotwell {

namespace {

ObsidianTemplate builtIn(const QString& name, const QString& content)
{
    return {QUuid::createUuid(), name, content, true, TemplateType::regular()};
}

} // namespace

TemplateType TemplateType::synced(const QString& filePath)
{
    TemplateType type;
    type.m_filePath = filePath;
    return type;
}

const ObsidianTemplate& ObsidianTemplate::defaultTemplate()
{
    static const ObsidianTemplate builtin =
        builtIn(QStringLiteral("Default"),
                QStringLiteral("# {{title}}\n\n{{content}}\n\n---\nCreated: {{date}}"));
    return builtin;
}

const ObsidianTemplate& ObsidianTemplate::meetingTemplate()
{
    static const ObsidianTemplate builtin =
        builtIn(QStringLiteral("Meeting"),
                QStringLiteral("# Meeting: {{title}}\n\n**Date:** {{date}}\n\n## Attendees\n- \n\n"
                               "## Agenda\n\n## Notes\n{{content}}\n\n## Action Items\n- [ ] "));
    return builtin;
}

const ObsidianTemplate& ObsidianTemplate::dailyTemplate()
{
    static const ObsidianTemplate builtin =
        builtIn(QStringLiteral("Daily Note"),
                QStringLiteral("# Daily Note - {{date}}\n\n## Today's Focus\n{{title}}\n\n"
                               "## Notes\n{{content}}\n\n## Gratitude\n- \n\n## Tomorrow\n- "));
    return builtin;
}

DropdownItem ObsidianTemplate::row() const
{
    if (type.isSynced())
        return {id, name, QStringLiteral("arrow.triangle.2.circlepath"),
                QStringLiteral("Synced template from folder")};
    return {id, name, QStringLiteral("doc.text"), QStringLiteral("Template for Obsidian notes")};
}

} // namespace jotwell
