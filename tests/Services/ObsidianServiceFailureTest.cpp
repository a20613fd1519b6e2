#include "Services/ObsidianService.h"

#include "Services/NoteServices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = ObsidianError::Kind;

struct RefusedRow {
    const char* name;
    QString text;
    int code;
    QString toast;
};

class NoteThatTheSystemRefuses : public ObsidianServiceTest,
                                 public testing::WithParamInterface<RefusedRow> {};

const RefusedRow refusedRows[] = {
    {"ThreeHundredCharacters", QString(300, u'x'), ENAMETOOLONG, u"File name too long"_qs},
    {"OneByteTooMuch", QString(233, u'x'), ENAMETOOLONG, u"File name too long"_qs},
    {"EmojiCountByTheirBytes", u"\U0001F600"_qs.repeated(59), ENAMETOOLONG,
     u"File name too long"_qs},
    {"TenMegabytesInOneLine", QString(10'000'000, u'x'), ENAMETOOLONG, u"File name too long"_qs},
    {"NulInTheTitle", u"a"_qs + QChar(u'\0') + u"b"_qs, EINVAL, u"Invalid argument"_qs},
};

TEST_P(NoteThatTheSystemRefuses, LeavesNothingBehind)
{
    for (const bool hasNamelessFiles : {true, false}) {
        edge.files.hasNamelessFiles = hasNamelessFiles;
        log.shown.clear();
        const auto created = create(GetParam().text);
        EXPECT_EQ(created.error(), NoteError(SystemError{GetParam().code}));
        EXPECT_THAT(log.shown, ElementsAre(cannotCreate(GetParam().toast)));
        EXPECT_THAT(vault.names(), IsEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, NoteThatTheSystemRefuses, testing::ValuesIn(refusedRows),
                         [](const auto& row) { return std::string(row.param.name); });

/// What keeps an operation from the vault, and what it then shows and gives.
struct VaultRow {
    const char* name;
    void (*make)(const ScratchFolder& folder);
    std::optional<QString> vault; ///< relative to the folder; none for no setting at all
    Kind kind;
    ToastType toast;
    QString createMessage; ///< the vault's path follows
    QString recentMessage; ///< the vault's path follows
};

class WithoutAVault : public ObsidianServiceTest, public testing::WithParamInterface<VaultRow> {
protected:
    WithoutAVault()
    {
        const VaultRow& row = GetParam();
        row.make(vault);
        if (row.kind != Kind::noFolderPath)
            m_path = vault.pathOf(*row.vault);
        settings.setObsidianFolderPath(row.vault ? std::optional(m_path) : std::nullopt);
        m_error = {row.kind, m_path};
        m_names = vault.names();
    }

    [[nodiscard]] ShownToast toast(const QString& message) const
    {
        return {GetParam().toast, GetParam().toast == ToastType::error ? 3.0 : 2.0,
                message + m_path};
    }

    QString m_path;
    ObsidianError m_error;
    QStringList m_names;
};

const QString setUp = u"Set up this command first in the app settings"_qs;
const QString cannotFind = u"Can't find the folder: "_qs;
const QString doesNotExist = u"The Obsidian folder does not exist: "_qs;
const QString noDirectory = u"The path is not a directory: "_qs;
void makeNothing(const ScratchFolder&) {}

const VaultRow vaultRows[] = {
    {"NoSetting", &makeNothing, std::nullopt, Kind::noFolderPath, ToastType::warning, setUp, setUp},
    {"EmptySetting", &makeNothing, QString(), Kind::noFolderPath, ToastType::warning, setUp, setUp},
    {"Gone", &makeNothing, u"gone"_qs, Kind::folderNotFound, ToastType::error, cannotFind,
     doesNotExist},
    {"GoneWithATrailingSlash", &makeNothing, u"gone/"_qs, Kind::folderNotFound, ToastType::error,
     cannotFind, doesNotExist},
    {"DanglingLink", [](const ScratchFolder& it) { it.makeLink(u"link"_qs, u"gone"_qs); },
     u"link"_qs, Kind::folderNotFound, ToastType::error, cannotFind, doesNotExist},
    {"File", [](const ScratchFolder& it) { it.put(u"file"_qs, "kept"); }, u"file"_qs,
     Kind::invalidPath, ToastType::error, noDirectory, noDirectory},
    {"Fifo", [](const ScratchFolder& it) { it.makeFifo(u"fifo"_qs); }, u"fifo"_qs,
     Kind::invalidPath, ToastType::error, noDirectory, noDirectory},
};

TEST_P(WithoutAVault, NoNoteIsMade)
{
    EXPECT_EQ(create(u"a"_qs).error(), NoteError(m_error));
    EXPECT_THAT(log.shown, ElementsAre(toast(GetParam().createMessage)));
    EXPECT_EQ(vault.names(), m_names);
}

TEST_P(WithoutAVault, NoRecentNotesAreListed)
{
    EXPECT_EQ(finished(notes.getRecentNotes()).error(), NoteError(m_error));
    EXPECT_THAT(log.shown, ElementsAre(toast(GetParam().recentMessage)));
}

TEST_P(WithoutAVault, NoRecentNotesOfAFolderAreListed)
{
    for (const QString& folder : {u"Inbox"_qs, u"All Folders"_qs}) {
        log.shown.clear();
        EXPECT_EQ(finished(notes.getRecentNotesInTopFolder(folder)).error(), NoteError(m_error));
        EXPECT_THAT(log.shown, ElementsAre(toast(GetParam().recentMessage)));
    }
}

TEST_P(WithoutAVault, NoFoldersAreListedAndNothingIsShown)
{
    EXPECT_THAT(notes.listVaultFolders(), IsEmpty());
    EXPECT_THAT(log.shown, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, WithoutAVault, testing::ValuesIn(vaultRows),
                         [](const auto& row) { return std::string(row.param.name); });

/// A file system under the vault, and whether a file of the note's name is there already.
struct FileSystemRow {
    const char* name;
    bool hasNamelessFiles;
    bool hasExchange;
    bool isThere;
    QStringList refused; ///< the calls whose failure fails the note, in order
};

class EachCallThatFails : public testing::TestWithParam<FileSystemRow> {
protected:
    void SetUp() override
    {
        const ScratchFolder folder;
        FailingFileCalls calls;
        const int nameless = calls.openNameless(folder.path().toUtf8().constData(), 0600);
        if (nameless >= 0)
            calls.close(nameless);
        else if (GetParam().hasNamelessFiles)
            GTEST_SKIP() << "the file system here has no nameless files";
    }
};

const FileSystemRow fileSystemRows[] = {
    {"WithNamelessFiles",
     true,
     true,
     false,
     {u"open"_qs, u"openNameless"_qs, u"write"_qs, u"fsync"_qs, u"linkNameless"_qs, u"fsync"_qs}},
    {"WithoutNamelessFiles",
     false,
     false,
     false,
     {u"open"_qs, u"open"_qs, u"write"_qs, u"fsync"_qs, u"rename"_qs, u"fsync"_qs}},
    {"ReplacingByExchange",
     true,
     true,
     true,
     {u"open"_qs, u"openNameless"_qs, u"fchmod"_qs, u"write"_qs, u"fsync"_qs, u"linkNameless"_qs,
      u"linkNameless"_qs, u"fsync"_qs}},
    {"ReplacingByRename",
     false,
     false,
     true,
     {u"open"_qs, u"open"_qs, u"fchmod"_qs, u"write"_qs, u"fsync"_qs, u"rename"_qs}},
};

/// Makes one note whose call of that number fails. Gives the call's name and whether the note
/// failed by it; nothing once there are fewer calls.
std::optional<std::pair<QString, bool>> noteWithFailingCall(const FileSystemRow& row, int call)
{
    NoteServices services;
    FailingFileCalls& files = services.edge.files;
    files.hasNamelessFiles = row.hasNamelessFiles;
    files.hasExchange = row.hasExchange;
    const QString name = dated(u"a"_qs);
    const QByteArray before = row.isThere ? "before" : "(No such file or directory)";
    if (row.isThere)
        services.vault.put(name, before);
    files.failAt(call, ENOSPC);
    const auto created = services.create(u"a\nnew"_qs);
    const QString failed = files.hasFailed() ? files.calls().at(call) : QString();
    EXPECT_EQ(services.vault.bytesOf(name), created ? "a\nnew" : before) << failed.toStdString();
    if (failed != u"unlink") { // what can't be removed stays, hidden, until the next write
        EXPECT_EQ(services.vault.names().size(), created || row.isThere ? 1 : 0);
    }
    const auto outcome = created ? noteCreated() : cannotCreate(u"No space left on device"_qs);
    EXPECT_THAT(services.log.shown, ElementsAre(outcome));
    if (failed.isEmpty())
        return std::nullopt;
    return std::pair(failed, !created);
}

TEST_P(EachCallThatFails, LeavesTheNoteWholeOrAbsentAndSaysSoOnce)
{
    QStringList refused;
    int call = 0;
    while (const auto outcome = noteWithFailingCall(GetParam(), call++)) {
        if (outcome->second)
            refused.append(outcome->first);
        ASSERT_LT(call, 100);
    }
    EXPECT_EQ(refused, GetParam().refused);
}

INSTANTIATE_TEST_SUITE_P(Rows, EachCallThatFails, testing::ValuesIn(fileSystemRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct CodeRow {
    const char* name;
    int code;
    QString description;
};

class VaultThatRefusesFiles : public ObsidianServiceTest,
                              public testing::WithParamInterface<CodeRow> {};

const CodeRow codeRows[] = {
    {"NoPermission", EACCES, u"Permission denied"_qs},
    {"ReadOnly", EROFS, u"Read-only file system"_qs},
    {"Full", ENOSPC, u"No space left on device"_qs},
    {"OverQuota", EDQUOT, u"Disk quota exceeded"_qs},
    {"Broken", EIO, u"Input/output error"_qs},
};

TEST_P(VaultThatRefusesFiles, IsReportedInTheSystemsWords)
{
    const auto& [name, code, description] = GetParam();
    edge.files.failAt(1, code); // behind the opening of the folder
    EXPECT_EQ(create(u"a"_qs).error(), NoteError(SystemError{code}));
    EXPECT_THAT(log.shown, ElementsAre(cannotCreate(description)));
    EXPECT_THAT(vault.names(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, VaultThatRefusesFiles, testing::ValuesIn(codeRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(ObsidianServiceTest, FailedNoteCanBeTriedAgain)
{
    edge.files.failAt(1, ENOSPC);
    EXPECT_FALSE(create(u"a"_qs));
    edge.files.failAt(std::nullopt, 0);
    EXPECT_TRUE(create(u"a"_qs));
    EXPECT_EQ(vault.bytesOf(dated(u"a"_qs)), "a");
}

} // namespace

} // namespace jotwell
