#pragma once

#include "Models/ObsidianTemplate.h"

#include <QByteArray>

#include <mutex>
#include <optional>

namespace jotwell {

/// Decodes the stored form of templates, and only once for the same bytes one after the other: the
/// input language asks for the templates several times at each key stroke. Any thread.
class DecodedTemplates {
public:
    /// Nothing for bytes that are no templates.
    [[nodiscard]] std::optional<ObsidianTemplates> of(const QByteArray& stored);

private:
    [[nodiscard]] bool isLast(const QByteArray& stored) const;

    std::mutex m_mutex;
    std::optional<QByteArray> m_stored; ///< what was decoded last
    std::optional<ObsidianTemplates> m_templates;
};

} // namespace jotwell
