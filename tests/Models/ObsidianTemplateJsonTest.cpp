#include "Models/ObsidianTemplateJson.h"

#include "QtPrinters.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

namespace {

const QString idText = u"E621E1F8-C36C-495A-93FC-0C247A3E6E5F"_qs;

ObsidianTemplate regularTemplate()
{
    return {QUuid::fromString(idText), u"Meeting"_qs, u"# {{title}}"_qs, false,
            TemplateType::regular()};
}

ObsidianTemplate syncedTemplate()
{
    return {QUuid::fromString(idText), u"Meeting"_qs, u"# {{title}}"_qs, true,
            TemplateType::synced(u"/templates/Meeting.md"_qs)};
}

const QByteArray storedRegular = R"({"id":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F",
    "name":"Meeting","content":"# {{title}}","showInDropdown":false,"type":{"regular":{}}})";
const QByteArray storedSynced = R"({"id":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F",
    "name":"Meeting","content":"# {{title}}","showInDropdown":true,
    "type":{"synced":{"filePath":"/templates/Meeting.md"}}})";

QByteArray withMember(const QString& name, const QJsonValue& value)
{
    QJsonObject object = QJsonDocument::fromJson(storedRegular).object();
    object.insert(name, value);
    return QJsonDocument(object).toJson();
}

QByteArray withoutMember(const QString& name)
{
    QJsonObject object = QJsonDocument::fromJson(storedRegular).object();
    object.remove(name);
    return QJsonDocument(object).toJson();
}

QByteArray withType(const char* type)
{
    return withMember(u"type"_qs, QJsonDocument::fromJson(type).object());
}

TEST(ObsidianTemplateJson, RegularIsWrittenInItsStoredForm)
{
    EXPECT_EQ(QJsonDocument::fromJson(encodeTemplate(regularTemplate())),
              QJsonDocument::fromJson(storedRegular));
}

TEST(ObsidianTemplateJson, SyncedIsWrittenInItsStoredForm)
{
    EXPECT_EQ(QJsonDocument::fromJson(encodeTemplate(syncedTemplate())),
              QJsonDocument::fromJson(storedSynced));
}

TEST(ObsidianTemplateJson, StoredFormsAreRead)
{
    EXPECT_EQ(decodeTemplate(storedRegular).value(), regularTemplate());
    EXPECT_EQ(decodeTemplate(storedSynced).value(), syncedTemplate());
}

TEST(ObsidianTemplateJson, ListIsAnArrayInItsOrder)
{
    const QByteArray stored = encodeTemplates({syncedTemplate(), regularTemplate()});
    const QJsonArray array = QJsonDocument::fromJson(stored).array();
    ASSERT_EQ(array.size(), 2);
    EXPECT_EQ(array.at(0), QJsonDocument::fromJson(storedSynced).object());
    EXPECT_EQ(array.at(1), QJsonDocument::fromJson(storedRegular).object());
    EXPECT_EQ(decodeTemplates(stored).value(),
              (ObsidianTemplates{syncedTemplate(), regularTemplate()}));
}

TEST(ObsidianTemplateJson, EmptyListIsAnEmptyArray)
{
    EXPECT_EQ(encodeTemplates({}), "[]");
    EXPECT_EQ(decodeTemplates("[]").value(), ObsidianTemplates());
}

struct TextRow {
    const char* name;
    QString text;
};

class StoredText : public testing::TestWithParam<TextRow> {};

const TextRow textRows[] = {
    {"Empty", u""_qs},
    {"QuotesAndBackslashes", u"\"a\\b\" /c"_qs},
    {"LineEnds", u"a\r\nb\u2028c"_qs},
    {"ControlCharacters", u"\u0001\u001f\u007f"_qs},
    {"Nul", u"a"_qs + QChar(u'\0') + u"b"_qs},
    {"Emoji", u"\U0001F469\u200D\U0001F4BB"_qs},
    {"Decomposed", u"a\u0308"_qs},
    {"LooksLikeJson", u"{\"id\": []}"_qs},
    {"Long", QString(1'000'000, u'x')},
};

TEST_P(StoredText, ComesBackUnchanged)
{
    ObsidianTemplate value = syncedTemplate();
    value.name = value.content = GetParam().text;
    value.type = TemplateType::synced(GetParam().text);
    EXPECT_EQ(decodeTemplate(encodeTemplate(value)).value(), value);
}

INSTANTIATE_TEST_SUITE_P(Rows, StoredText, testing::ValuesIn(textRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct AcceptedRow {
    const char* name;
    QByteArray json;
};

class AcceptedTemplate : public testing::TestWithParam<AcceptedRow> {};

const AcceptedRow acceptedRows[] = {
    {"LowerCaseUuid", withMember(u"id"_qs, idText.toLower())},
    {"UnknownMember", withMember(u"colour"_qs, u"red"_qs)},
    {"RegularThatHoldsAnotherKey", withType(R"({"regular":{"filePath":"/a"}})")},
    {"RegularBesideAnUnknownKind", withType(R"({"regular":{},"remote":{}})")},
};

TEST_P(AcceptedTemplate, ReadsAsTheRegularOne)
{
    const auto decoded = decodeTemplate(GetParam().json);
    ASSERT_TRUE(decoded) << decoded.error().description.toStdString();
    EXPECT_EQ(*decoded, regularTemplate());
}

INSTANTIATE_TEST_SUITE_P(Rows, AcceptedTemplate, testing::ValuesIn(acceptedRows),
                         [](const auto& row) { return std::string(row.param.name); });

class RefusedTemplate : public testing::TestWithParam<AcceptedRow> {};

const AcceptedRow refusedRows[] = {
    {"NoBytes", ""},
    {"NoJson", "templates"},
    {"Null", "null"},
    {"Array", "[]"},
    {"EmptyObject", "{}"},
    {"NoUtf8", QByteArray(storedRegular).replace("Meeting", "M\xff")},
    {"TrailingText", storedRegular + "x"},
    {"NoId", withoutMember(u"id"_qs)},
    {"NoName", withoutMember(u"name"_qs)},
    {"NoContent", withoutMember(u"content"_qs)},
    {"NoShowInDropdown", withoutMember(u"showInDropdown"_qs)},
    {"NoType", withoutMember(u"type"_qs)},
    {"IdIsANumber", withMember(u"id"_qs, 7)},
    {"IdIsNoUuid", withMember(u"id"_qs, u"Meeting"_qs)},
    {"IdIsEmpty", withMember(u"id"_qs, u""_qs)},
    {"IdInBraces", withMember(u"id"_qs, u'{' + idText + u'}')},
    {"NameIsANumber", withMember(u"name"_qs, 7)},
    {"NameIsNull", withMember(u"name"_qs, QJsonValue::Null)},
    {"ContentIsAnArray", withMember(u"content"_qs, QJsonArray())},
    {"ShowInDropdownIsANumber", withMember(u"showInDropdown"_qs, 1)},
    {"ShowInDropdownIsAText", withMember(u"showInDropdown"_qs, u"true"_qs)},
    {"TypeIsAText", withMember(u"type"_qs, u"regular"_qs)},
    {"TypeOfAnUnknownKind", withType(R"({"remote":{}})")},
    {"RegularIsABoolean", withType(R"({"regular":true})")},
    {"SyncedIsAText", withType(R"({"synced":"/a.md"})")},
    {"SyncedWithoutPath", withType(R"({"synced":{}})")},
    {"SyncedPathIsANumber", withType(R"({"synced":{"filePath":7}})")},
};

TEST_P(RefusedTemplate, IsAnErrorWithADescription)
{
    const auto decoded = decodeTemplate(GetParam().json);
    ASSERT_FALSE(decoded);
    EXPECT_FALSE(decoded.error().description.isEmpty());
}

TEST_P(RefusedTemplate, FailsTheWholeList)
{
    EXPECT_FALSE(decodeTemplates("[" + storedSynced + "," + GetParam().json + "]"));
}

INSTANTIATE_TEST_SUITE_P(Rows, RefusedTemplate, testing::ValuesIn(refusedRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ObsidianTemplateJson, TypeTakesExactlyOneKind)
{
    for (const char* type : {"{}", R"({"regular":{},"synced":{"filePath":"/a.md"}})"}) {
        const auto decoded = decodeTemplate(withType(type));
        ASSERT_FALSE(decoded) << type;
        EXPECT_EQ(decoded.error().description, u"Invalid number of keys found, expected one."_qs);
    }
}

TEST(ObsidianTemplateJson, ListThatIsNoArrayIsRefused)
{
    for (const QByteArray& json : {QByteArray(), QByteArray("no JSON"), storedRegular})
        EXPECT_FALSE(decodeTemplates(json)) << json.toStdString();
}

TEST(ObsidianTemplateJson, EveryTruncationIsRefused)
{
    const QByteArray whole = encodeTemplates({regularTemplate(), syncedTemplate()});
    ASSERT_TRUE(decodeTemplates(whole));
    for (qsizetype length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(decodeTemplates(whole.first(length))) << length;
}

} // namespace

} // namespace jotwell
