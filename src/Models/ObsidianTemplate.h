#pragma once

#include "Models/DropdownItem.h"

#include <QList>
#include <QString>
#include <QUuid>

#include <optional>

namespace jotwell {

/// Where a template comes from: the settings, or a file of the templates folder.
class TemplateType {
public:
    [[nodiscard]] static TemplateType regular() { return {}; }
    [[nodiscard]] static TemplateType synced(const QString& filePath);

    [[nodiscard]] bool isSynced() const { return m_filePath.has_value(); }
    /// Absolute path of the file; nothing for a regular template.
    [[nodiscard]] const std::optional<QString>& filePath() const { return m_filePath; }

    bool operator==(const TemplateType&) const = default;

private:
    std::optional<QString> m_filePath;
};

/// A template for notes. `content` may hold the placeholders "{{title}}", "{{content}}" and
/// "{{date}}".
struct ObsidianTemplate {
    QUuid id;
    QString name;
    QString content;
    bool showInDropdown = true;
    TemplateType type;

    // The built-in ones. Each gets its identifier at first use and keeps it as long as the process.
    [[nodiscard]] static const ObsidianTemplate& defaultTemplate();
    [[nodiscard]] static const ObsidianTemplate& meetingTemplate();
    [[nodiscard]] static const ObsidianTemplate& dailyTemplate();

    [[nodiscard]] DropdownItem row() const;

    bool operator==(const ObsidianTemplate&) const = default;
};

using ObsidianTemplates = QList<ObsidianTemplate>;

} // namespace jotwell
