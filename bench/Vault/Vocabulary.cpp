#include "Vault/Vocabulary.h"

#include <iterator>
#include <set>

namespace jotwell::bench {

namespace {

constexpr const char* consonants[] = {"b", "d",  "f",  "g",  "h",  "k",  "l",  "m",  "n",
                                      "p", "r",  "s",  "t",  "v",  "w",  "z",  "st", "tr",
                                      "j", "sh", "pr", "gr", "cl", "br", "th", "c",  "pl"};
constexpr const char* vowels[] = {"a", "e", "i", "o", "u", "e", "a", "ea", "ou", "y", "io", "ei"};
constexpr const char* endings[] = {"", "", "", "n", "r", "s", "t", "l", "m", "nd", "ng", "x"};

template <std::size_t count>
const char* oneOf(const char* const (&choices)[count], RandomSource& random)
{
    return choices[random.below(count)];
}

std::size_t syllableCount(std::size_t rank, RandomSource& random)
{
    if (rank < 150)
        return 1;
    return rank < 2000 ? random.between(1, 2) : random.between(2, 4);
}

std::string plainWord(std::size_t rank, RandomSource& random)
{
    std::string word;
    for (std::size_t rest = syllableCount(rank, random); rest > 0; --rest) {
        word += oneOf(consonants, random);
        word += oneOf(vowels, random);
    }
    return word + oneOf(endings, random);
}

std::string withUmlauts(const std::string& word)
{
    std::string result;
    for (const char letter : word) {
        switch (letter) {
        case 'a':
            result += "ä";
            break;
        case 'o':
            result += "ö";
            break;
        case 'y':
            result += "ü";
            break;
        default:
            result += letter;
        }
    }
    return result;
}

std::string utf8(char32_t character)
{
    const auto trail = [](char32_t bits) { return static_cast<char>(0x80U | (bits & 0x3FU)); };
    if (character < 0x80)
        return {static_cast<char>(character)};
    if (character < 0x800)
        return {static_cast<char>(0xC0U | (character >> 6U)), trail(character)};
    return {static_cast<char>(0xE0U | (character >> 12U)), trail(character >> 6U),
            trail(character)};
}

std::string cyrillicWord(const std::string& word)
{
    static constexpr char32_t letters[] = U"абцдефгхийклмнопярстувшжыз";
    std::string result;
    for (const char letter : word)
        result += utf8(letters[letter - 'a']);
    return result;
}

std::string hanWord(std::size_t rank, RandomSource& random)
{
    // Frequent characters come first and make up most words, as they do in Chinese.
    const auto character = [&random] {
        const double share = random.share();
        return utf8(0x4E00 + static_cast<char32_t>(share * share * share * 4000));
    };
    std::string result = character();
    for (std::size_t more = rank < 300 ? 0 : random.between(1, 2); more > 0; --more)
        result += character();
    return result;
}

template <typename Make>
std::vector<std::string> distinctWords(Make make)
{
    std::vector<std::string> words;
    std::set<std::string> seen;
    RandomSource random(2);
    while (words.size() < Vocabulary::size) {
        const std::string word = make(words.size(), random);
        if (seen.insert(word).second)
            words.push_back(word);
    }
    return words;
}

} // namespace

Vocabulary::Vocabulary()
{
    const Words plain = distinctWords(plainWord);
    for (std::size_t rank = 0; rank < size; ++rank) {
        const std::string& word = plain[rank];
        words(Script::umlauts).push_back(rank % 6 == 4 ? withUmlauts(word) : word);
        words(Script::cyrillic).push_back(cyrillicWord(word));
    }
    words(Script::plain) = plain;
    words(Script::han) = distinctWords(hanWord);
}

const std::string& Vocabulary::word(Script script, std::size_t rank) const
{
    const Script words = script == Script::emoji ? Script::plain : script;
    return m_words[static_cast<std::size_t>(words)][rank];
}

const std::string& randomEmoji(RandomSource& random)
{
    static const std::string emoji[] = {"😀", "✅",      "🚀", "📌",           "❤️", "👍🏽",
                                        "🎉", "⚠️", "📅", "👩‍💻", "🇩🇪",     "💡"};
    return emoji[random.below(std::size(emoji))];
}

std::string capitalised(const std::string& word)
{
    std::string result = word;
    const auto first = static_cast<unsigned char>(word[0]);
    const auto second = static_cast<unsigned char>(word.size() > 1 ? word[1] : 0);
    if (first >= 'a' && first <= 'z') {
        result[0] = static_cast<char>(first - 0x20);
    } else if (first == 0xC3 && second >= 0xA0) { // ä ö ü
        result[1] = static_cast<char>(second - 0x20);
    } else if (first == 0xD0 && second >= 0xB0) { // а to п
        result[1] = static_cast<char>(second - 0x20);
    } else if (first == 0xD1 && second < 0x90) { // р to я
        result[0] = static_cast<char>(0xD0);
        result[1] = static_cast<char>(second + 0x20);
    }
    return result;
}

} // namespace jotwell::bench
