#include "Services/Index/Vault/VaultListing.h"

#include "Support/FolderWalk.h"

namespace jotwell {

namespace {

QByteArray deepCopy(const QByteArray& path)
{
    return {path.constData(), path.size()};
}

template <typename Note, typename MakeNote>
Result<std::vector<Note>, SystemError> listing(const QString& vaultPath, MakeNote makeNote)
{
    std::vector<Note> notes;
    const auto visit = [&](const FolderEntry& entry) {
        if (entry.isNote())
            notes.push_back(makeNote(entry));
    };
    if (const auto walked = walkFolder(vaultPath, visit); !walked)
        return walked.error();
    return notes;
}

} // namespace

Result<std::vector<QByteArray>, SystemError> findMarkdownFiles(const QString& vaultPath)
{
    return listing<QByteArray>(vaultPath,
                               [](const FolderEntry& entry) { return deepCopy(entry.path()); });
}

Result<std::vector<ListedNote>, SystemError> findMarkdownFilesWithStatus(const QString& vaultPath)
{
    return listing<ListedNote>(vaultPath, [](const FolderEntry& entry) {
        return ListedNote{deepCopy(entry.path()), entry.status()};
    });
}

QString listingFailure()
{
    return QStringLiteral("Failed to enumerate files");
}

} // namespace jotwell
