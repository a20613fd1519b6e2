#pragma once

#include "Views/Editor/ParameterNames.h"

#include <QStringList>

#include <functional>
#include <optional>

namespace jotwell {

/// The names that may stand behind a "$", the first that fits winning; "All Folders" is one of the
/// folders. Each list is asked for only if the text has a use for it.
struct TokenNames {
    std::function<QStringList()> templates;
    std::function<QStringList()> folders;
};

/// The names made ready to be looked for, once for as long as the lists stay the same ones: there
/// may be thousands at each key stroke. Main thread.
class ReadyNames {
public:
    explicit ReadyNames(TokenNames names) : m_names(std::move(names)) {}

    /// Those that hold at the time; they stand until they are asked for again.
    [[nodiscard]] ParameterNames& templates() { return m_templates.of(m_names.templates()); }
    [[nodiscard]] ParameterNames& folders() { return m_folders.of(m_names.folders()); }

private:
    class Kept {
    public:
        [[nodiscard]] ParameterNames& of(const QStringList& list);

    private:
        QStringList m_list;
        std::optional<ParameterNames> m_names;
    };

    TokenNames m_names;
    Kept m_templates;
    Kept m_folders;
};

} // namespace jotwell
