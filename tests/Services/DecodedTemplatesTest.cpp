#include "Services/DecodedTemplates.h"

#include "Models/ObsidianTemplateJson.h"
#include "QtPrinters.h"

#include <gtest/gtest.h>

#include <thread>

namespace jotwell {

namespace {

ObsidianTemplates namedTemplates(const QString& name)
{
    return {{QUuid::fromString(u"E621E1F8-C36C-495A-93FC-0C247A3E6E5F"_qs), name, u"x"_qs, true,
             TemplateType::regular()}};
}

// Bytes in an array of their own.
QByteArray deepCopy(const QByteArray& bytes)
{
    return QByteArray(bytes.constData(), bytes.size());
}

class DecodedTemplatesTest : public testing::Test {
protected:
    [[nodiscard]] const void* listOf(const QByteArray& stored)
    {
        return m_decoded.of(stored)->constData();
    }

    const QByteArray m_a = encodeTemplates(namedTemplates(u"a"_qs));
    const QByteArray m_b = encodeTemplates(namedTemplates(u"b"_qs)); // of the same length
    DecodedTemplates m_decoded;
};

TEST_F(DecodedTemplatesTest, EqualBytesGiveTheSameListAgain)
{
    const void* const list = listOf(m_a);
    EXPECT_EQ(listOf(m_a), list);
    EXPECT_EQ(listOf(deepCopy(m_a)), list);
}

TEST_F(DecodedTemplatesTest, OtherBytesGiveTheirOwn)
{
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(m_decoded.of(m_a), namedTemplates(u"a"_qs));
        EXPECT_EQ(m_decoded.of(m_b), namedTemplates(u"b"_qs));
    }
}

TEST_F(DecodedTemplatesTest, ChangeInPlaceIsSeen)
{
    QByteArray stored = m_a;
    EXPECT_EQ(m_decoded.of(stored), namedTemplates(u"a"_qs));
    stored.replace(m_a, m_b);
    EXPECT_EQ(m_decoded.of(stored), namedTemplates(u"b"_qs));
}

TEST_F(DecodedTemplatesTest, ListThatItsReaderChangesIsNobodyElses)
{
    auto list = m_decoded.of(m_a);
    list->first().name = u"mine"_qs;
    EXPECT_EQ(m_decoded.of(m_a), namedTemplates(u"a"_qs));
}

TEST_F(DecodedTemplatesTest, BrokenBytesGiveNothingUntilOthersCome)
{
    EXPECT_EQ(m_decoded.of(QByteArray()), std::nullopt);
    EXPECT_EQ(m_decoded.of("[]"), ObsidianTemplates());
    EXPECT_EQ(m_decoded.of(m_a.chopped(1)), std::nullopt);
    EXPECT_EQ(m_decoded.of(m_a.chopped(1)), std::nullopt);
    EXPECT_EQ(m_decoded.of(m_a), namedTemplates(u"a"_qs));
}

TEST_F(DecodedTemplatesTest, ThreadsGetWhatTheirBytesSay)
{
    std::vector<std::thread> threads;
    for (const QString& name : {u"a"_qs, u"b"_qs, u"a"_qs}) {
        threads.emplace_back([this, name] {
            const QByteArray stored = encodeTemplates(namedTemplates(name));
            for (int round = 0; round < 2000; ++round)
                ASSERT_EQ(m_decoded.of(stored), namedTemplates(name));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace

} // namespace jotwell
