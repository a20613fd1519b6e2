#include "Services/Index/Search/LowercaseForms.h"

#include <QChar>
#include <QList>

#include <algorithm>

namespace jotwell {

namespace {

// Characters that are neither the upper nor the title case of what they become.
constexpr char32_t oddCapitals[] = {
    0x03F4, // Greek capital theta symbol
    0x1E9E, // capital sharp s
    0x2126, // ohm sign
    0x212A, // kelvin sign
    0x212B, // angstrom sign
};

} // namespace

LowercaseForm lowercaseForm(char32_t character)
{
    if (character == dottedCapitalI)
        return {U'i', combiningDotAbove};
    return {QChar::toLower(character), 0};
}

std::u32string charactersLoweredTo(char32_t character)
{
    std::u32string candidates{character, QChar::toUpper(character), QChar::toTitleCase(character)};
    candidates.append(std::begin(oddCapitals), std::end(oddCapitals));
    std::u32string characters;
    for (const char32_t candidate : candidates) {
        const bool isForm = lowercaseForm(candidate) == LowercaseForm{character, 0};
        if (isForm && characters.find(candidate) == std::u32string::npos)
            characters += candidate;
    }
    return characters;
}

std::u32string codePointsOf(QStringView text)
{
    if (!text.isValidUtf16())
        return {};
    const QList<uint> characters = text.toUcs4();
    return {characters.begin(), characters.end()};
}

} // namespace jotwell
