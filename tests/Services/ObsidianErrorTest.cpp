#include "Services/ObsidianError.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace jotwell {

namespace {

using Kind = ObsidianError::Kind;

struct ErrorRow {
    const char* name;
    NoteError error;
    QString description;
};

class NoteErrorDescription : public testing::TestWithParam<ErrorRow> {};

const ErrorRow errorRows[] = {
    {"FolderNotFoundNamesThePath", ObsidianError{Kind::folderNotFound, u"/a b"_qs},
     u"The Obsidian folder does not exist: /a b"_qs},
    {"InvalidPathNamesThePath", ObsidianError{Kind::invalidPath, u"/a b"_qs},
     u"The path is not a directory: /a b"_qs},
    {"NoFolderPathPointsToTheSettings", ObsidianError{Kind::noFolderPath, {}},
     u"Please set the Obsidian folder path in Settings."_qs},
    {"SystemErrorSpeaksForItself", SystemError{ENOSPC}, u"No space left on device"_qs},
};

TEST_P(NoteErrorDescription, IsForTheUser)
{
    EXPECT_EQ(description(GetParam().error), GetParam().description);
}

INSTANTIATE_TEST_SUITE_P(Rows, NoteErrorDescription, testing::ValuesIn(errorRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ObsidianError, EqualByKindAndPath)
{
    const ObsidianError error{Kind::invalidPath, u"/a"_qs};
    EXPECT_EQ(error, (ObsidianError{Kind::invalidPath, u"/a"_qs}));
    EXPECT_NE(error, (ObsidianError{Kind::invalidPath, u"/b"_qs}));
    EXPECT_NE(error, (ObsidianError{Kind::folderNotFound, u"/a"_qs}));
}

} // namespace

} // namespace jotwell
