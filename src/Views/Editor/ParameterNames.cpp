#include "Views/Editor/ParameterNames.h"

#include "Support/TextUnits.h"
#include "Views/Editor/TextScan.h"

namespace jotwell {

namespace {

// Trying costs a little for each name passed over, and more for each one compared.
constexpr std::size_t namesPassedAtATime = 32;
// What it may cost for each name before making the index is cheaper.
constexpr std::size_t mostTrials = 8;

// A stretch of as many units as the name has characters is compared with the name.
bool canStandInText(QStringView name)
{
    return characterCount(name) == utf16Length(name);
}

} // namespace

ParameterNames::ParameterNames(const QStringList& names) : m_kept(names)
{
    m_names.reserve(static_cast<std::size_t>(names.size()));
    m_firstUnits.reserve(static_cast<std::size_t>(names.size()));
    for (const QString& name : names) {
        m_hasEmptyName = name.isEmpty();
        if (m_hasEmptyName)
            break;
        m_names.emplace_back(name);
        m_firstUnits.push_back(name.front().unicode());
    }
}

std::optional<qsizetype> ParameterNames::lengthAtStart(QStringView text)
{
    if (!m_index && m_trials > mostTrials * m_names.size())
        makeIndex();
    const std::optional<std::size_t> place =
        m_index ? m_index->firstAtStart(text) : placeByTrial(text);
    if (place)
        return utf16Length(m_names[*place]);
    return m_hasEmptyName ? std::optional<qsizetype>(0) : std::nullopt;
}

std::optional<std::size_t> ParameterNames::placeByTrial(QStringView text)
{
    const QStringView firstUnits(m_firstUnits.data(), static_cast<qsizetype>(m_firstUnits.size()));
    m_trials += 1 + m_names.size() / namesPassedAtATime;
    if (text.isEmpty())
        return std::nullopt;
    const char16_t unit = text.front().unicode();
    for (qsizetype at = find(firstUnits, unit, 0); at < firstUnits.size();
         at = find(firstUnits, unit, at + 1)) {
        const auto place = static_cast<std::size_t>(at);
        ++m_trials;
        if (text.startsWith(m_names[place]) && canStandInText(m_names[place]))
            return place;
    }
    return std::nullopt;
}

void ParameterNames::makeIndex()
{
    std::erase_if(m_names, [](QStringView name) { return !canStandInText(name); });
    m_index.emplace(m_names);
}

} // namespace jotwell
