#include "Platform/linux/DesktopEntry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QRandomGenerator>

namespace jotwell {

namespace {

using testing::ElementsAre;

/// The arguments of a written command line, by the rules of the format: first the escapes of any
/// string, then quotes, then field codes.
std::vector<QByteArray> argumentsOf(const QByteArray& written)
{
    QByteArray line;
    for (qsizetype at = 0; at < written.size(); ++at) {
        if (written[at] != '\\') {
            line += written[at];
            continue;
        }
        const char code = written[++at];
        line += code == 's'   ? ' '
                : code == 'n' ? '\n'
                : code == 't' ? '\t'
                : code == 'r' ? '\r'
                              : code;
        EXPECT_TRUE(QByteArrayView("sntr\\").contains(code)) << "no escape: \\" << code;
    }
    std::vector<QByteArray> arguments(1);
    bool isQuoted = false;
    for (qsizetype at = 0; at < line.size(); ++at) {
        const char each = line[at];
        if (each == '"')
            isQuoted = !isQuoted;
        else if (each == ' ' && !isQuoted)
            arguments.emplace_back();
        else if (each == '\\' && isQuoted)
            arguments.back() += line[++at];
        else if (each == '%') {
            EXPECT_EQ(line[++at], '%') << "a field code";
            arguments.back() += '%';
        } else {
            EXPECT_TRUE(isQuoted || !QByteArrayView("\t\n'\\><~|&;$*?#()`").contains(each))
                << "unquoted: " << each;
            arguments.back() += each;
        }
    }
    EXPECT_FALSE(isQuoted);
    return arguments;
}

/// What is started in the end: some paths go by way of the shell.
QByteArray programOf(const QByteArray& written)
{
    std::vector<QByteArray> arguments = argumentsOf(written);
    if (arguments.size() == 4) {
        EXPECT_THAT(arguments, ElementsAre("/bin/sh", "-c", "exec \"$0\"", testing::_));
        return arguments.back();
    }
    EXPECT_EQ(arguments.size(), 1U);
    EXPECT_FALSE(arguments.front().contains('=') || arguments.front().contains('%'));
    return arguments.front();
}

struct CommandRow {
    const char* name;
    const char* program;
    const char* written;
};

class DesktopEntryCommand : public testing::TestWithParam<CommandRow> {};

const CommandRow commandRows[] = {
    {"Plain", "/usr/bin/jotwell", "/usr/bin/jotwell"},
    {"Blank", "/opt/my tools/jotwell", "\"/opt/my tools/jotwell\""},
    {"DoubleQuote", "/a\"b", R"("/a\\"b")"},
    {"SingleQuote", "/a'b", R"("/a'b")"},
    {"Dollar", "/a$b", R"("/a\\$b")"},
    {"Backtick", "/a`b", R"("/a\\`b")"},
    {"Backslash", "/a\\b", R"("/a\\\\b")"},
    {"Percent", "/a%b", R"(/bin/sh -c "exec \\"\\$0\\"" /a%%b)"},
    {"PercentAndBlank", "/a %f", R"(/bin/sh -c "exec \\"\\$0\\"" "/a %%f")"},
    {"EqualSign", "/a=b", R"(/bin/sh -c "exec \\"\\$0\\"" /a=b)"},
    {"NoneAscii", "/home/ä/ノ", "/home/ä/ノ"},
    {"Newline", "/a\nb", R"("/a\nb")"},
    {"Tab", "/a\tb", R"("/a\tb")"},
    {"BlankAtTheEnd", "/a ", "\"/a \""},
};

TEST_P(DesktopEntryCommand, IsWrittenAsTheFormatHasIt)
{
    EXPECT_EQ(DesktopEntry::commandLine(GetParam().program), GetParam().written);
}

TEST_P(DesktopEntryCommand, ReadsAsTheProgramAlone)
{
    EXPECT_EQ(programOf(DesktopEntry::commandLine(GetParam().program)), GetParam().program);
}

INSTANTIATE_TEST_SUITE_P(Rows, DesktopEntryCommand, testing::ValuesIn(commandRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(DesktopEntryTest, AnyPathReadsAsItself)
{
    QRandomGenerator random(7);
    constexpr QByteArrayView letters = "ab \"'\\$%`;=#&|<>()*?~\t\n\r[]sntr";
    for (int round = 0; round < 5000; ++round) {
        QByteArray path = "/";
        for (int length = random.bounded(12); length > 0; --length)
            path += letters[random.bounded(int(letters.size()))];
        const QByteArray written = DesktopEntry::commandLine(path);
        ASSERT_EQ(programOf(written), path) << written.toStdString();
        ASSERT_FALSE(written.contains('\n'));

        DesktopEntry entry;
        entry.set("TryExec", DesktopEntry::escaped(path));
        ASSERT_EQ(DesktopEntry(entry.bytes()).string("TryExec"), path);
    }
}

TEST(DesktopEntryTest, BytesStayAsTheyAre)
{
    const QByteArray bytes = "# mine\n\n[Desktop Entry]\nName = A \nName[de]=\xe4\n\n"
                             "[Desktop Action x]\nName=B\n";
    EXPECT_EQ(DesktopEntry(bytes).bytes(), bytes);
    EXPECT_EQ(DesktopEntry(bytes.chopped(1)).bytes(), bytes) << "also without a last line end";
    EXPECT_EQ(DesktopEntry(QByteArray()).bytes(), QByteArray());
}

TEST(DesktopEntryTest, KeysOfOtherGroupsAreOthers)
{
    const DesktopEntry entry("[Other]\nExec=a\n[Desktop Entry]\nExec = b \r\n[Third]\nExec=c\n");
    EXPECT_EQ(entry.value("Exec"), "b");
    EXPECT_EQ(DesktopEntry("[Other]\nExec=a\n").value("Exec"), std::nullopt);
}

TEST(DesktopEntryTest, LastOfTwoValuesCountsAndOneIsLeft)
{
    DesktopEntry entry("[Desktop Entry]\nA=1\nB=x\nA=2\n");
    EXPECT_EQ(entry.value("A"), "2");
    entry.set("A", "3");
    EXPECT_EQ(entry.bytes(), "[Desktop Entry]\nA=3\nB=x\n");
    entry.remove("A");
    EXPECT_EQ(entry.bytes(), "[Desktop Entry]\nB=x\n");
}

TEST(DesktopEntryTest, NewKeyStandsBehindTheLastOfItsGroup)
{
    DesktopEntry entry("[Desktop Entry]\nA=1\n# end\n\n[Other]\nA=2\n");
    entry.set("B", "3");
    EXPECT_EQ(entry.bytes(), "[Desktop Entry]\nA=1\nB=3\n# end\n\n[Other]\nA=2\n");
    DesktopEntry bare("[Desktop Entry]\n[Other]\n");
    bare.set("B", "3");
    EXPECT_EQ(bare.bytes(), "[Desktop Entry]\nB=3\n[Other]\n");
}

TEST(DesktopEntryTest, GroupIsMadeWhereThereIsNone)
{
    DesktopEntry entry;
    entry.set("A", "1");
    EXPECT_EQ(entry.bytes(), "[Desktop Entry]\nA=1\n");
    EXPECT_TRUE(entry.isWellFormed());
}

TEST(DesktopEntryTest, LinesWithoutAMeaningAreKeptAsComments)
{
    for (const char* line : {"nonsense", "=value", "[Group"}) {
        DesktopEntry entry(QByteArray("[Desktop Entry]\nA=1\n") + line + '\n');
        EXPECT_FALSE(entry.isWellFormed()) << line;
        entry.commentOutMalformedLines();
        EXPECT_TRUE(entry.isWellFormed());
        EXPECT_EQ(entry.bytes(), QByteArray("[Desktop Entry]\nA=1\n# ") + line + '\n');
    }
}

TEST(DesktopEntryTest, IsMalformedWithoutItsGroup)
{
    EXPECT_FALSE(DesktopEntry().isWellFormed());
    EXPECT_FALSE(DesktopEntry("[Other]\nA=1\n").isWellFormed());
    EXPECT_FALSE(DesktopEntry("A=1\n[Desktop Entry]\n").isWellFormed());
    EXPECT_TRUE(DesktopEntry("# c\n\n[Desktop Entry]\n").isWellFormed());
}

TEST(DesktopEntryTest, AdditionsAreTold)
{
    const QByteArray own = "[Desktop Entry]\nA=1\n\nB=2\n";
    EXPECT_TRUE(DesktopEntry(own).hasNothingBut({"A", "B"}));
    EXPECT_TRUE(DesktopEntry().hasNothingBut({}));
    EXPECT_FALSE(DesktopEntry(own).hasNothingBut({"A"}));
    for (const char* more : {"# c\n", "A[de]=1\n", "[Other]\n", "nonsense\n"})
        EXPECT_FALSE(DesktopEntry(own + more).hasNothingBut({"A", "B"})) << more;
}

TEST(DesktopEntryTest, TruthIsWrittenInTwoWays)
{
    const DesktopEntry entry("[Desktop Entry]\nA=true\nB=1\nC=false\nD=0\nE=yes\n");
    EXPECT_TRUE(entry.isTrue("A") && entry.isTrue("B"));
    EXPECT_TRUE(entry.isFalse("C") && entry.isFalse("D"));
    for (const char* key : {"E", "None"})
        EXPECT_FALSE(entry.isTrue(key) || entry.isFalse(key));
    EXPECT_FALSE(entry.isTrue("C") || entry.isFalse("A"));
}

} // namespace

} // namespace jotwell
