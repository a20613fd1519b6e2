#include "Views/Settings/TemplateSaver.h"

#include "Fakes/FakeDefaultsStore.h"
#include "Services/SettingsService.h"

#include <QCoreApplication>
#include <QSemaphore>
#include <QTest>

#include <gtest/gtest.h>

#include <thread>

namespace jotwell {

namespace {

constexpr int patience = 5000;

/// Settings whose disk is written when it is let go.
class SlowDefaultsStore : public FakeDefaultsStore {
public:
    QSemaphore waiting;
    QSemaphore mayEnd;

    void synchronize() override
    {
        waiting.release();
        mayEnd.acquire();
        FakeDefaultsStore::synchronize();
    }
};

class TemplateSaverTest : public testing::Test {
protected:
    TemplateSaverTest()
    {
        QObject::connect(&m_saver, &TemplateSaver::saved, &m_saver, [this] {
            ++m_saves;
            EXPECT_TRUE(m_defaults.isSynchronized());
        });
    }
    ~TemplateSaverTest() override { m_defaults.mayEnd.release(100); }

    void rename(const QString& name)
    {
        ObsidianTemplate edited = ObsidianTemplate::defaultTemplate();
        edited.name = name;
        m_saver.change({TemplateChange::Kind::edited, edited, TemplateChange::name});
        m_saver.save(edited.id);
    }

    SlowDefaultsStore m_defaults;
    SettingsService m_settings{m_defaults, [] { return ObsidianTemplates(); }};
    TemplateSaver m_saver{m_settings};
    int m_saves = 0;
};

TEST_F(TemplateSaverTest, SaveIsToldOnceItIsOnTheDisk)
{
    rename(u"Letter"_qs);
    ASSERT_TRUE(m_defaults.waiting.tryAcquire(1, patience));
    EXPECT_EQ(m_settings.obsidianTemplates().first().name, u"Letter"_qs);
    for (int turn = 0; turn < 20; ++turn)
        QCoreApplication::processEvents();
    EXPECT_EQ(m_saves, 0);
    EXPECT_TRUE(m_saver.isBusy());
    m_defaults.mayEnd.release();
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_saves == 1; }));
    EXPECT_FALSE(m_saver.isBusy());
}

TEST_F(TemplateSaverTest, FlushingWaitsForTheDisk)
{
    rename(u"Letter"_qs);
    std::thread disk([this] {
        EXPECT_TRUE(m_defaults.waiting.tryAcquire(1, patience));
        m_defaults.mayEnd.release();
    });
    m_saver.flush();
    EXPECT_EQ(m_saves, 1);
    disk.join();
}

} // namespace

} // namespace jotwell
