#include "Fuzz/MutatedCorpus.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace jotwell {

namespace {

constexpr std::size_t longestMutation = 600;
constexpr std::size_t longestPiece = 24;

std::string contentOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace

MutatedCorpus::MutatedCorpus(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    std::transform(files.begin(), files.end(), std::back_inserter(m_examples), contentOf);
}

std::string MutatedCorpus::nextMutation()
{
    std::string text = m_examples[below(m_examples.size())];
    for (std::size_t times = 1 + below(6); times > 0; --times)
        mutate(text);
    text.resize(std::min(text.size(), longestMutation));
    return text;
}

// std::uniform_int_distribution differs from one standard library to the next.
std::size_t MutatedCorpus::below(std::size_t limit)
{
    return limit == 0 ? 0 : m_random() % limit;
}

std::string MutatedCorpus::pieceOf(const std::string& text)
{
    const std::size_t start = below(text.size() + 1);
    return text.substr(start, 1 + below(longestPiece));
}

void MutatedCorpus::mutate(std::string& text)
{
    const std::size_t place = below(text.size() + 1);
    switch (below(6)) {
    case 0:
        text.erase(place, 1 + below(longestPiece));
        break;
    case 1:
        text.insert(place, pieceOf(text));
        break;
    case 2:
        text.insert(place, 1, static_cast<char>(below(256)));
        break;
    case 3:
        if (place < text.size())
            text[place] = static_cast<char>(below(128));
        break;
    case 4:
        text.resize(place);
        text += pieceOf(m_examples[below(m_examples.size())]);
        break;
    default:
        text.insert(place, pieceOf(m_examples[below(m_examples.size())]));
    }
}

} // namespace jotwell
