#include "Services/DecodedTemplates.h"

#include "Models/ObsidianTemplateJson.h"

namespace jotwell {

std::optional<ObsidianTemplates> DecodedTemplates::of(const QByteArray& stored)
{
    {
        const std::scoped_lock lock(m_mutex);
        if (isLast(stored))
            return m_templates;
    }
    // Without the lock: it takes milliseconds, and the main thread may be asking too.
    const auto decoded = decodeTemplates(stored);
    auto templates = decoded ? std::optional(decoded.value()) : std::nullopt;
    const std::scoped_lock lock(m_mutex);
    m_stored = stored;
    m_templates = templates;
    return templates;
}

// The store gives the same shared bytes as long as it has no others.
bool DecodedTemplates::isLast(const QByteArray& stored) const
{
    return m_stored && m_stored->size() == stored.size() &&
           (m_stored->constData() == stored.constData() || *m_stored == stored);
}

} // namespace jotwell
