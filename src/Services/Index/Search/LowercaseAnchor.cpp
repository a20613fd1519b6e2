#include "Services/Index/Search/LowercaseAnchor.h"

#include "Services/Index/Search/LowercaseForms.h"

#include <QByteArray>

#include <algorithm>
#include <map>
#include <optional>

namespace jotwell {

namespace {

// Every byte of a character as it stands in texts, in upper and in lower case.
using Run = std::vector<MaskedByte>;
// The same by length: those of one length are looked for at once.
using Runs = std::vector<Run>;

// How much of a long term is looked at for its rarest part, and how many runs may stand for it.
constexpr std::size_t longestChoice = 32;
constexpr std::size_t mostFilters = 4;
// What a filter's way through a million places costs, and what one of its hits does where the rest
// of the run is still to be looked at, or where there is no rest and the term is.
constexpr qsizetype costOfFilter = 15'000;
constexpr qsizetype costOfHit = 1;
constexpr qsizetype costOfTerm = 6;

qsizetype costOf(const Run& run)
{
    const qsizetype hits = ByteRunFilter(run).expectedHits();
    return costOfFilter + hits * (run.size() > 2 ? costOfHit : costOfTerm);
}

Runs runsOf(std::u32string_view origins)
{
    std::map<qsizetype, Run> byLength;
    for (const char32_t origin : origins) {
        const QByteArray bytes = QString::fromUcs4(&origin, 1).toUtf8();
        Run& run = byLength[bytes.size()];
        const bool isFirst = run.empty();
        for (qsizetype i = 0; i < bytes.size(); ++i) {
            const auto byte = static_cast<uchar>(bytes[i]);
            if (isFirst)
                run.push_back({0, byte});
            else
                run[static_cast<std::size_t>(i)].admit(byte);
        }
    }
    Runs runs;
    for (auto& [length, run] : byLength)
        runs.push_back(std::move(run));
    return runs;
}

// What may stand in a text for the character at `place`.
Runs runsAt(std::u32string_view term, std::size_t place)
{
    std::u32string origins = charactersLoweredTo(term[place]);
    const bool isLast = place + 1 == term.size();
    if (mayShareItsOrigin(term, place) || (term[place] == U'i' && isLast))
        origins += dottedCapitalI;
    return runsOf(origins);
}

// Every one of `left` with every one of `right` behind it; none if one of them becomes too long.
Runs joined(const Runs& left, const Runs& right)
{
    Runs runs;
    for (const Run& first : left) {
        for (const Run& second : right) {
            if (first.size() + second.size() > ByteRunFilter::longestRun)
                return {};
            runs.push_back(first);
            runs.back().insert(runs.back().end(), second.begin(), second.end());
        }
    }
    return runs;
}

// The cheapest of the anchors that it is shown.
struct Choice {
    LowercaseAnchor anchor;
    std::optional<qsizetype> cost;

    void consider(std::size_t first, const Runs& runs)
    {
        LowercaseAnchor candidate{first, {}};
        qsizetype candidateCost = 0;
        for (const Run& run : runs) {
            candidate.filters.emplace_back(run);
            candidateCost += costOf(run);
        }
        if (!cost || candidateCost < *cost) {
            anchor = std::move(candidate);
            cost = candidateCost;
        }
    }
};

void considerFrom(Choice& choice, std::size_t first, const std::vector<Runs>& places)
{
    Runs runs{Run{}};
    for (std::size_t place = first; place < places.size() && !places[place].empty(); ++place) {
        runs = joined(runs, places[place]);
        if (runs.empty() || runs.size() > mostFilters)
            return;
        choice.consider(first, runs);
    }
}

} // namespace

bool mayShareItsOrigin(std::u32string_view term, std::size_t place)
{
    const bool isDot = term[place] == combiningDotAbove;
    const bool isBeforeDot = place + 1 < term.size() && term[place + 1] == combiningDotAbove;
    const bool isBehindI = place == 0 || term[place - 1] == U'i';
    return (isDot && isBehindI) || (term[place] == U'i' && isBeforeDot);
}

LowercaseAnchor chooseAnchor(std::u32string_view term)
{
    Choice choice;
    std::vector<Runs> places; // empty where there are no bytes to go by
    for (std::size_t place = 0; place < std::min(term.size(), longestChoice); ++place)
        places.push_back(mayShareItsOrigin(term, place) ? Runs() : runsAt(term, place));
    for (std::size_t first = 0; first < places.size(); ++first)
        considerFrom(choice, first, places);
    if (!choice.cost)
        choice.consider(0, runsAt(term, 0));
    return choice.anchor;
}

} // namespace jotwell
