#include "CommandLine.h"

#include "Platform/BuildSettings.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

std::optional<CommandLineAnswer> answerTo(const char* words)
{
    const QString line = QStringLiteral("jotwell ") + QString::fromUtf8(words);
    return jotwell::answerTo(line.split(u' ', Qt::SkipEmptyParts));
}

class CommandLineStartTest : public testing::TestWithParam<const char*> {};

TEST_P(CommandLineStartTest, ProgramStarts)
{
    EXPECT_FALSE(answerTo(GetParam())) << answerTo(GetParam())->text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Lines, CommandLineStartTest,
                         testing::Values("", "-platform offscreen", "--platform=offscreen",
                                         "-session 10be_1700_0", "-style Fusion -reverse",
                                         "-display :7 -qwindowgeometry 10x10", "--"));

struct Refused {
    const char* words;
    const char* complaint;
};

class CommandLineRefusalTest : public testing::TestWithParam<Refused> {};

TEST_P(CommandLineRefusalTest, IsTold)
{
    const auto answer = answerTo(GetParam().words);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 2);
    EXPECT_EQ(answer->text.toStdString(),
              std::string("jotwell: ") + GetParam().complaint + "\nTry 'jotwell --help'.\n");
}

INSTANTIATE_TEST_SUITE_P(Lines, CommandLineRefusalTest,
                         testing::Values(Refused{"--toggle", "Unknown option 'toggle'."},
                                         Refused{"-x", "Unknown option 'x'."},
                                         Refused{"--help --Käse", "Unknown option 'Käse'."},
                                         Refused{"--version=3",
                                                 "Unexpected value after '--version'."},
                                         Refused{"-platform", "Missing value after '-platform'."},
                                         Refused{"note.md", "Unexpected: 'note.md'."},
                                         Refused{"-- --help", "Unexpected: '--help'."}));

TEST(CommandLineTest, VersionIsTold)
{
    for (const char* words : {"--version", "-v", "-version", "-platform nowhere --version"}) {
        const auto answer = answerTo(words);
        ASSERT_TRUE(answer) << words;
        EXPECT_EQ(answer->status, 0);
        EXPECT_EQ(answer->text, QStringLiteral("jotwell %1\n").arg(build::version));
    }
}

TEST(CommandLineTest, HelpNamesTheOptions)
{
    for (const char* words : {"--help", "-h", "--version --help"}) {
        const auto answer = answerTo(words);
        ASSERT_TRUE(answer) << words;
        EXPECT_EQ(answer->status, 0);
        EXPECT_TRUE(answer->text.startsWith(QStringLiteral("Usage: jotwell [OPTION]\n")));
        EXPECT_TRUE(answer->text.contains(QStringLiteral("-h, --help ")));
        EXPECT_TRUE(answer->text.contains(QStringLiteral("-v, --version ")));
    }
}

} // namespace

} // namespace jotwell
