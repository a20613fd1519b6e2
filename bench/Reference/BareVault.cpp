#include "Reference/BareVault.h"

#include "Reference/FolderCrew.h"

#include <xxhash.h>

#include <algorithm>
#include <cstring>
#include <mutex>
#include <thread>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace jotwell::bench {

namespace {

bool isNote(const char* name)
{
    const std::size_t length = std::strlen(name);
    return length > 3 && std::memcmp(name + length - 3, ".md", 3) == 0;
}

/// Calls `folder(name)` and `note(descriptor of the folder, name)` for what the folder holds, which
/// is closed at the end.
template <typename Folder, typename Note>
void listFolder(int descriptor, Folder folder, Note note)
{
    DIR* listing = ::fdopendir(descriptor);
    if (!listing)
        return;
    while (const dirent* entry = ::readdir(listing)) {
        if (entry->d_name[0] == '.')
            continue;
        if (entry->d_type == DT_DIR)
            folder(descriptor, entry->d_name);
        else if (isNote(entry->d_name))
            note(descriptor, entry->d_name);
    }
    ::closedir(listing);
}

int openFolder(int parent, const char* name)
{
    return ::openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

template <typename Note>
void statBelow(int descriptor, std::string& path, Note note)
{
    const std::size_t length = path.size();
    listFolder(
        descriptor,
        [&](int parent, const char* name) {
            path.append(name).push_back('/');
            statBelow(openFolder(parent, name), path, note);
            path.resize(length);
        },
        [&](int parent, const char* name) {
            struct statx status;
            if (::statx(parent, name, AT_SYMLINK_NOFOLLOW, STATX_BASIC_STATS, &status) == 0)
                note(path, name, status);
        });
}

template <typename Note>
void statAll(const std::string& vault, Note note)
{
    std::string path = vault + '/';
    statBelow(openFolder(AT_FDCWD, path.c_str()), path, note);
}

/// Reads into `buffer`, which grows as needed, and gives the number of bytes.
std::size_t readNote(int folder, const char* name, std::vector<char>& buffer)
{
    const int file = ::openat(folder, name, O_RDONLY | O_CLOEXEC);
    struct stat status;
    if (file < 0 || ::fstat(file, &status) != 0)
        return 0;
    const auto size = static_cast<std::size_t>(status.st_size);
    if (buffer.size() < size)
        buffer.resize(size * 2);
    const ssize_t count = ::read(file, buffer.data(), size);
    ::close(file);
    return count < 0 ? 0 : static_cast<std::size_t>(count);
}

} // namespace

std::size_t listAndStat(const std::string& vault)
{
    std::size_t count = 0;
    statAll(vault, [&count](const std::string&, const char*, const struct statx&) { ++count; });
    return count;
}

std::vector<BareNote> newestNotes(const std::string& vault, std::size_t count)
{
    const auto isNewer = [](const BareNote& left, const BareNote& right) {
        return left.modificationTime > right.modificationTime;
    };
    // A heap with the oldest of them on top.
    std::vector<BareNote> newest;
    statAll(vault, [&](const std::string& folder, const char* name, const struct statx& status) {
        const std::int64_t time =
            status.stx_mtime.tv_sec * 1'000'000'000 + status.stx_mtime.tv_nsec;
        if (newest.size() == count) {
            if (time <= newest.front().modificationTime)
                return;
            std::pop_heap(newest.begin(), newest.end(), isNewer);
            newest.pop_back();
        }
        newest.push_back({folder + name, time});
        std::push_heap(newest.begin(), newest.end(), isNewer);
    });
    std::sort_heap(newest.begin(), newest.end(), isNewer);
    return newest;
}

BareReading readAndHash(const std::string& vault)
{
    BareReading all;
    std::mutex mutex;
    FolderCrew crew(openFolder(AT_FDCWD, vault.c_str()));
    crew.run([&] {
        BareReading mine;
        std::vector<char> buffer;
        while (const auto folder = crew.next()) {
            listFolder(
                *folder, [&](int parent, const char* name) { crew.add(openFolder(parent, name)); },
                [&](int parent, const char* name) {
                    const std::size_t size = readNote(parent, name, buffer);
                    mine.noteCount += 1;
                    mine.byteCount += size;
                    mine.digest += XXH3_64bits(buffer.data(), size);
                });
            crew.finished();
        }
        const std::lock_guard lock(mutex);
        all.noteCount += mine.noteCount;
        all.byteCount += mine.byteCount;
        all.digest += mine.digest;
    });
    return all;
}

std::vector<std::string> noteTexts(const std::string& vault)
{
    std::vector<std::string> texts;
    std::vector<char> buffer;
    statAll(vault, [&](const std::string& folder, const char* name, const struct statx&) {
        const std::size_t size = readNote(AT_FDCWD, (folder + name).c_str(), buffer);
        texts.emplace_back(buffer.data(), size);
    });
    return texts;
}

} // namespace jotwell::bench
