#include "Services/SettingsService.h"

#include "Platform/linux/PosixFileCalls.h"
#include "Platform/qt/IniDefaultsStore.h"
#include "QtPrinters.h"
#include "Services/ScratchFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

namespace {

using testing::IsEmpty;

const QString file = u"Jotwell.ini"_qs;

/// Settings over the real file, each of `settings()` as if the program had started anew.
class SettingsInAFile : public testing::Test {
protected:
    [[nodiscard]] SettingsService settings()
    {
        m_store = std::make_unique<IniDefaultsStore>(m_folder.pathOf(file), m_calls);
        return SettingsService(*m_store, [] { return ObsidianTemplates(); });
    }

    void put(const QByteArray& lines) const { m_folder.put(file, "[General]\n" + lines); }

    ScratchFolder m_folder;
    PosixFileCalls m_calls;
    std::unique_ptr<IniDefaultsStore> m_store;
};

TEST_F(SettingsInAFile, ComeBackBehindARestart)
{
    const QUuid id = QUuid::createUuid();
    const ObsidianTemplates templates{
        {id, u"a, \"b\"; c=d"_qs, u"\\n%1\n{{title}}\u00e4\U0001F600"_qs, false, {}}};
    settings().setObsidianFolderPath(u"/my, vault;=%20 \u00e4\"@"_qs);
    settings().setTemplatesFolderPath(u"@ByteArray(x)"_qs);
    settings().setObsidianTemplate(u"line\r\n\tline\\"_qs);
    settings().setObsidianTemplates(templates);
    settings().setLastUsedTemplateId(id);
    settings().setSyncedTemplateShowInDropdown(id, false);
    settings().setRecentFilesCount(25);
    settings().setGlobalHotkeyCode(36);
    settings().setGlobalHotkeyModifiers(0x20000);
    settings().setOnboardingCompleted(true);
    EXPECT_EQ(settings().obsidianFolderPath(), u"/my, vault;=%20 \u00e4\"@"_qs);
    EXPECT_EQ(settings().templatesFolderPath(), u"@ByteArray(x)"_qs);
    EXPECT_EQ(settings().obsidianTemplate(), u"line\r\n\tline\\"_qs);
    EXPECT_EQ(settings().obsidianTemplates(), templates);
    EXPECT_EQ(settings().lastUsedTemplateId(), id);
    EXPECT_FALSE(settings().getSyncedTemplateShowInDropdown(id));
    EXPECT_EQ(settings().recentFilesCount(), 25);
    EXPECT_EQ(settings().globalHotkeyCode(), 36);
    EXPECT_EQ(settings().globalHotkeyModifiers(), 0x20000U);
    EXPECT_TRUE(settings().onboardingCompleted());
}

TEST_F(SettingsInAFile, EveryTextComesBackBehindARestart)
{
    for (const QString& text :
         {u"42"_qs, u"true"_qs, u""_qs, u"@Invalid()"_qs, u"a, b; c"_qs, u"one\ntwo\r\n"_qs,
          u"  blank \t"_qs, u"before"_qs + QChar(0) + u"1"_qs, u"half "_qs + QChar(0xd83d)}) {
        const ObsidianTemplates templates{{QUuid::createUuid(), text, text, true, {}}};
        settings().setObsidianFolderPath(text);
        settings().setObsidianTemplate(text);
        settings().setObsidianTemplates(templates);
        EXPECT_EQ(settings().obsidianFolderPath(), text);
        EXPECT_EQ(settings().obsidianTemplate(), text);
        EXPECT_EQ(settings().obsidianTemplates(), templates);
    }
}

TEST_F(SettingsInAFile, ReadingMakesNoFile)
{
    EXPECT_EQ(settings().obsidianTemplates().size(), 3);
    EXPECT_EQ(settings().recentFilesCount(), 10);
    EXPECT_THAT(m_folder.names(), IsEmpty());
}

struct NumberRow {
    const char* name;
    QByteArray stored;
    qint64 count;
};

class StoredNumber : public SettingsInAFile, public testing::WithParamInterface<NumberRow> {};

const NumberRow numberRows[] = {
    {"Number", "7", 7},      {"NumberInQuotes", "\"7\"", 7},
    {"Zero", "0", 10},       {"Negative", "-7", 10},
    {"Word", "many", 10},    {"NumberAndWord", "7 notes", 10},
    {"Fraction", "7.5", 10}, {"TooLarge", "99999999999999999999", 10},
    {"Empty", "", 10},       {"Bytes", "@ByteArray(7)", 10},
    {"List", "7, 8", 10},    {"Invalid", "@Invalid()", 10},
};

TEST_P(StoredNumber, ThatIsNoneReadsAsTheDefault)
{
    put("RecentFilesCount=" + GetParam().stored + "\n");
    EXPECT_EQ(settings().recentFilesCount(), GetParam().count);
}

INSTANTIATE_TEST_SUITE_P(Rows, StoredNumber, testing::ValuesIn(numberRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct TextRow {
    const char* name;
    QByteArray stored;
    QString path;
};

class StoredPath : public SettingsInAFile, public testing::WithParamInterface<TextRow> {};

const TextRow pathRows[] = {
    {"Text", "/vault", u"/vault"_qs},     {"Empty", "", QString()},
    {"Bytes", "@ByteArray(/vault)", {}},  {"List", "/a, /b", {}},
    {"Size", "@Size(1 2)", {}},           {"Invalid", "@Invalid()", {}},
    {"BrokenVariant", "@Variant(x)", {}},
};

TEST_P(StoredPath, ThatIsNoTextReadsAsNone)
{
    put("ObsidianFolderPath=" + GetParam().stored + "\n");
    EXPECT_EQ(settings().obsidianFolderPath(), GetParam().path);
}

INSTANTIATE_TEST_SUITE_P(Rows, StoredPath, testing::ValuesIn(pathRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct TemplatesRow {
    const char* name;
    QByteArray stored;
};

class StoredTemplates : public SettingsInAFile, public testing::WithParamInterface<TemplatesRow> {};

const TemplatesRow templatesRows[] = {
    {"Text", "\"[]\""},
    {"Number", "7"},
    {"Empty", ""},
    {"NoBytes", "@ByteArray()"},
    {"BytesThatAreNoJson", "@ByteArray(no JSON)"},
    {"JsonCutShort", R"("@ByteArray([{\"id\":\"E621E1F8-C36C-495A-93FC-0C)\")"},
};

TEST_P(StoredTemplates, ThatAreNoneReadAsTheBuiltIns)
{
    put("ObsidianTemplates=" + GetParam().stored + "\n");
    const ObsidianTemplates read = settings().obsidianTemplates();
    ASSERT_EQ(read.size(), 3);
    EXPECT_EQ(read.first(), ObsidianTemplate::defaultTemplate());
}

INSTANTIATE_TEST_SUITE_P(Rows, StoredTemplates, testing::ValuesIn(templatesRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(SettingsInAFile, EmptyListOfTemplatesIsNotTheBuiltIns)
{
    put("ObsidianTemplates=@ByteArray([])\n");
    EXPECT_THAT(settings().obsidianTemplates(), IsEmpty());
}

TEST_F(SettingsInAFile, BrokenValuesLeaveTheOthersAlone)
{
    put("GlobalHotkeyCode=@ByteArray(36)\nGlobalHotkeyModifiers=Command\nObsidianTemplate=7\n"
        "LastUsedTemplateId=7\nOnboardingCompleted=maybe\nSyncedTemplatePreferences={}\n"
        "ObsidianFolderPath=/vault\n");
    EXPECT_EQ(settings().globalHotkeyCode(), 11);
    EXPECT_EQ(settings().globalHotkeyModifiers(), 1572864U);
    EXPECT_EQ(settings().obsidianTemplate(), u"7"_qs);
    EXPECT_EQ(settings().lastUsedTemplateId(), std::nullopt);
    EXPECT_FALSE(settings().onboardingCompleted());
    EXPECT_THAT(settings().getSyncedTemplatePreferences(), IsEmpty());
    EXPECT_EQ(settings().obsidianFolderPath(), u"/vault"_qs);
}

TEST_F(SettingsInAFile, TemplateOfFiftyMegabytesComesBackWhole)
{
    const ObsidianTemplates templates{
        {QUuid::createUuid(), u"Large"_qs, u"{{title}}\n"_qs.repeated(5'000'000), true, {}}};
    settings().setObsidianTemplates(templates);
    EXPECT_EQ(settings().obsidianTemplates(), templates);
}

} // namespace

} // namespace jotwell
