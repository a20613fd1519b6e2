#include "driver/Operations.h"

namespace jotwell {

void Operations::add(QStringView name, Operation run)
{
    m_byName.emplace(name.toString(), std::move(run));
}

Operation Operations::find(const QString& name) const
{
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? Operation() : found->second;
}

QStringList Operations::names() const
{
    QStringList all;
    for (const auto& [name, run] : m_byName)
        all.append(name);
    return all;
}

} // namespace jotwell
