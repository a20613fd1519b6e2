#include "Vault/VaultPlan.h"

#include "Vault/NoteSizes.h"

#include <algorithm>
#include <cmath>

namespace jotwell::bench {

namespace {

/// What a random number is drawn for: each gets numbers of its own.
enum Purpose : std::uint64_t {
    frontMatter = 1,
    links,
    tags,
    beyondAscii,
    size,
    script,
    folder,
    folderName,
    title,
    time
};

constexpr std::size_t smallestWithMarkup = 200; // bytes: room for front matter, link, tag and word
constexpr std::size_t deepestFolder = 6;
constexpr std::int64_t newestNote = 1'735'689'600; // seconds: the start of 2025
constexpr std::uint64_t threeYears = 3ULL * 365 * 24 * 60 * 60 * 1'000'000'000; // nanoseconds

void shuffle(std::vector<std::size_t>& sizes)
{
    RandomSource random(Purpose::size);
    for (std::size_t end = sizes.size(); end > 1; --end)
        std::swap(sizes[end - 1], sizes[random.below(end)]);
}

/// The given share of all notes, drawn from those that are large enough.
std::vector<NotePlan*> someOf(std::vector<NotePlan>& notes, Purpose purpose, double share)
{
    std::vector<NotePlan*> eligible;
    for (NotePlan& note : notes) {
        if (note.size >= smallestWithMarkup)
            eligible.push_back(&note);
    }
    std::sort(eligible.begin(), eligible.end(), [purpose](const auto* left, const auto* right) {
        return mixed(purpose, left->number) < mixed(purpose, right->number);
    });
    const auto wanted = std::llround(share * static_cast<double>(notes.size()));
    eligible.resize(std::min(eligible.size(), static_cast<std::size_t>(wanted)));
    return eligible;
}

Script foreignScript(std::size_t number)
{
    static constexpr Script choices[] = {Script::umlauts, Script::umlauts, Script::cyrillic,
                                         Script::han, Script::emoji};
    return choices[mixed(Purpose::script, number) % 5];
}

std::vector<std::string> planFolders(std::size_t count, const Vocabulary& vocabulary)
{
    std::vector<std::string> folders{std::string()};
    RandomSource random(Purpose::folderName);
    while (folders.size() <= count) {
        const std::string& parent = folders[random.below(folders.size())];
        if (std::count(parent.begin(), parent.end(), '/') >= static_cast<int>(deepestFolder))
            continue;
        const Script script = random.oneIn(8) ? Script::umlauts : Script::plain;
        const std::string name = capitalised(vocabulary.randomWord(script, random)) + ' ' +
                                 std::to_string(folders.size());
        folders.push_back(parent + name + '/');
    }
    return folders;
}

/// Some folders hold many notes, most few.
std::size_t folderOf(std::size_t number, std::size_t folderCount)
{
    const auto draw = static_cast<double>(mixed(Purpose::folder, number) >> 11U) * 0x1.0p-53;
    return static_cast<std::size_t>(draw * draw * static_cast<double>(folderCount));
}

std::vector<NotePlan> planNotes(std::size_t count, std::size_t folderCount)
{
    std::vector<std::size_t> sizes = noteSizes(count);
    shuffle(sizes);
    std::vector<NotePlan> notes(count);
    for (std::size_t number = 0; number < count; ++number) {
        NotePlan& note = notes[number];
        note.number = number;
        note.size = sizes[number];
        note.folder = folderOf(number, folderCount);
        const std::uint64_t age = mixed(Purpose::time, number) % threeYears;
        note.modificationTime = newestNote * 1'000'000'000 - static_cast<std::int64_t>(age);
    }
    return notes;
}

} // namespace

VaultPlan planVault(std::size_t noteCount, const Vocabulary& vocabulary)
{
    const auto folderCount = static_cast<std::size_t>(
        std::llround(statistics::foldersPerNote * static_cast<double>(noteCount)));
    VaultPlan plan;
    plan.folders = planFolders(folderCount, vocabulary);
    plan.notes = planNotes(noteCount, plan.folders.size());
    for (NotePlan* note : someOf(plan.notes, frontMatter, statistics::withFrontMatter))
        note->hasFrontMatter = true;
    for (NotePlan* note : someOf(plan.notes, links, statistics::withLinks))
        note->hasLinks = true;
    for (NotePlan* note : someOf(plan.notes, tags, statistics::withTags))
        note->hasTags = true;
    for (NotePlan* note : someOf(plan.notes, beyondAscii, statistics::beyondAscii))
        note->script = foreignScript(note->number);
    return plan;
}

std::string noteTitle(const NotePlan& note, const Vocabulary& vocabulary)
{
    RandomSource random(mixed(Purpose::title, note.number));
    std::string title = capitalised(vocabulary.randomWord(note.script, random));
    for (std::size_t more = random.between(1, 3); more > 0; --more)
        title += ' ' + vocabulary.randomWord(note.script, random);
    return title + ' ' + std::to_string(note.number);
}

} // namespace jotwell::bench
