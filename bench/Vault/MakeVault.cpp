#include "Vault/NoteWriter.h"
#include "Vault/VaultPlan.h"
#include "Vault/VaultStatistics.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

// MakeVault FOLDER COUNT: makes a vault of COUNT notes in FOLDER/notes, always the same one. One
// that is there already, made by the same version of this program, stays.

using namespace jotwell::bench;
namespace fs = std::filesystem;

namespace {

/// To be raised whenever another vault comes out.
constexpr int generatorVersion = 3;

void check(bool succeeded, const std::string& what)
{
    if (succeeded)
        return;
    std::perror(what.c_str());
    std::exit(EXIT_FAILURE);
}

void writeNote(const std::string& path, const std::string& text, std::int64_t modificationTime)
{
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    check(file >= 0, path);
    const ssize_t written = ::write(file, text.data(), text.size());
    check(written == static_cast<ssize_t>(text.size()), path);
    const timespec time{modificationTime / 1'000'000'000, modificationTime % 1'000'000'000};
    const timespec times[] = {time, time};
    check(::futimens(file, times) == 0, path);
    ::close(file);
}

void makeFolders(const fs::path& vault, const VaultPlan& plan)
{
    for (const std::string& folder : plan.folders)
        fs::create_directories(vault / folder);
    fs::create_directories(vault / ".obsidian");
    std::ofstream(vault / ".obsidian" / "app.json") << "{}\n";
}

VaultStatistics writeNotes(const fs::path& vault, const VaultPlan& plan,
                           const Vocabulary& vocabulary, std::atomic<std::size_t>& next)
{
    VaultStatistics statistics;
    while (true) {
        const std::size_t number = next++;
        if (number >= plan.notes.size())
            return statistics;
        const NotePlan& note = plan.notes[number];
        const std::string path = plan.folders[note.folder] + noteTitle(note, vocabulary) + ".md";
        const std::string text = noteText(note, plan, vocabulary);
        statistics.add(path, text);
        writeNote((vault / path).string(), text, note.modificationTime);
    }
}

VaultStatistics makeVault(const fs::path& vault, std::size_t count)
{
    const Vocabulary vocabulary;
    const VaultPlan plan = planVault(count, vocabulary);
    makeFolders(vault, plan);
    std::atomic<std::size_t> next = 0;
    std::vector<VaultStatistics> parts(std::max(1U, std::thread::hardware_concurrency()));
    std::vector<std::thread> threads;
    threads.reserve(parts.size());
    for (VaultStatistics& part : parts)
        threads.emplace_back([&] { part = writeNotes(vault, plan, vocabulary, next); });
    for (std::thread& thread : threads)
        thread.join();
    VaultStatistics all;
    for (const VaultStatistics& part : parts)
        all.add(part);
    all.setFolderCount(plan.folders.size() - 1);
    return all;
}

std::string description(std::size_t count)
{
    std::ostringstream text;
    text << "Generator version " << generatorVersion << ", " << count << " notes\n";
    return text.str();
}

std::string contentOf(const fs::path& file)
{
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fputs("MakeVault FOLDER COUNT\n", stderr);
        return EXIT_FAILURE;
    }
    const fs::path folder = argv[1];
    const std::size_t count = std::stoul(argv[2]);
    const fs::path label = folder / "vault.txt";
    if (contentOf(label) == description(count))
        return EXIT_SUCCESS;
    fs::remove_all(folder / "notes");
    fs::remove(label);
    const VaultStatistics statistics = makeVault(folder / "notes", count);
    if (!statistics.report())
        return EXIT_FAILURE;
    ::sync(); // or its writing back would go on beside the measurements
    std::ofstream(label) << description(count);
}
