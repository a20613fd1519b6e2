#include "Views/Appearance.h"

#include "Fakes/FakeAppearance.h"
#include "Platform/KeyNames.h"
#include "Views/KeyCaps.h"
#include "Views/ViewResources.h"

#include <QColor>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>

using namespace jotwell;

namespace {

class FrenchKeys : public KeyNames {
public:
    [[nodiscard]] QString nameOf(const QString& key) const override
    {
        return key == u"⇧" ? QStringLiteral("Maj") : key;
    }
};

/// What a view of an engine of its own is drawn with.
class EngineWithView {
public:
    EngineWithView()
    {
        QQmlComponent component(&m_engine);
        component.setData("import QtQuick\n"
                          "import Jotwell\n"
                          "QtObject {\n"
                          "    readonly property color text: Theme.text\n"
                          "    readonly property color line: Theme.separator\n"
                          "    readonly property string key: KeyCaps.text('⇧')\n"
                          "}",
                          {});
        m_view.reset(component.create());
        EXPECT_TRUE(m_view) << qPrintable(component.errorString());
    }

    [[nodiscard]] QColor text() const { return m_view->property("text").value<QColor>(); }
    [[nodiscard]] QColor line() const { return m_view->property("line").value<QColor>(); }
    [[nodiscard]] QString key() const { return m_view->property("key").toString(); }

private:
    QQmlEngine m_engine;
    std::unique_ptr<QObject> m_view;
};

class AppearanceTest : public testing::Test {
protected:
    ~AppearanceTest() override { Appearance::ofAllViews().follow(nullptr); }

    FakeAppearance desktop;
};

} // namespace

TEST_F(AppearanceTest, IsLightWithoutADesktop)
{
    EXPECT_FALSE(Appearance::ofAllViews().dark());
    EXPECT_FALSE(Appearance::ofAllViews().highContrast());
}

TEST_F(AppearanceTest, TakesOverWhatTheDesktopSaysAtOnce)
{
    desktop.set(true, true);
    Appearance::ofAllViews().follow(&desktop);
    EXPECT_TRUE(Appearance::ofAllViews().dark());
    EXPECT_TRUE(Appearance::ofAllViews().highContrast());
}

TEST_F(AppearanceTest, TellsEachChangeOnce)
{
    const QSignalSpy darkChanges(&Appearance::ofAllViews(), &Appearance::darkChanged);
    const QSignalSpy contrastChanges(&Appearance::ofAllViews(), &Appearance::highContrastChanged);
    Appearance::ofAllViews().follow(&desktop);
    EXPECT_EQ(darkChanges.count(), 0);
    desktop.set(true);
    EXPECT_EQ(darkChanges.count(), 1);
    EXPECT_EQ(contrastChanges.count(), 0);
    desktop.set(true, true);
    desktop.set(true, true);
    EXPECT_EQ(darkChanges.count(), 1);
    EXPECT_EQ(contrastChanges.count(), 1);
}

TEST_F(AppearanceTest, HasBothChangesBeforeItTellsOne)
{
    bool hadBoth = false;
    Appearance::ofAllViews().follow(&desktop);
    QObject listener;
    QObject::connect(&Appearance::ofAllViews(), &Appearance::darkChanged, &listener,
                     [&hadBoth] { hadBoth = Appearance::ofAllViews().highContrast(); });
    desktop.set(true, true);
    EXPECT_TRUE(hadBoth);
}

TEST_F(AppearanceTest, AsksOnlyTheLastDesktop)
{
    FakeAppearance next;
    Appearance::ofAllViews().follow(&desktop);
    desktop.set(true);
    Appearance::ofAllViews().follow(&next);
    EXPECT_FALSE(Appearance::ofAllViews().dark());
    EXPECT_FALSE(desktop.isFollowed());
    Appearance::ofAllViews().follow(nullptr);
    EXPECT_FALSE(next.isFollowed());
}

TEST_F(AppearanceTest, ColoursOfAllEnginesFollowIt)
{
    const EngineWithView first;
    const EngineWithView second;
    Appearance::ofAllViews().follow(&desktop);
    ASSERT_EQ(first.text(), QColor(Qt::black));
    desktop.set(true);
    EXPECT_EQ(first.text(), QColor(Qt::white));
    EXPECT_EQ(second.text(), QColor(Qt::white));
    EXPECT_LT(first.line().alpha(), 255);
    desktop.set(false, true);
    EXPECT_EQ(second.text(), QColor(Qt::black));
    EXPECT_EQ(second.line().alpha(), 255);
}

TEST_F(AppearanceTest, LastsLongerThanAnEngine)
{
    {
        const EngineWithView gone;
    }
    Appearance::ofAllViews().follow(&desktop);
    desktop.set(true);
    EXPECT_EQ(EngineWithView().text(), QColor(Qt::white));
}

TEST_F(AppearanceTest, LooksAreThoseOfTheDesktopWhileTheyLast)
{
    desktop.set(true);
    const FrenchKeys keys;
    {
        const DesktopLooks looks(desktop, keys);
        const EngineWithView view;
        EXPECT_EQ(view.text(), QColor(Qt::white));
        EXPECT_EQ(view.key(), QStringLiteral("Maj"));
    }
    EXPECT_FALSE(desktop.isFollowed());
    EXPECT_EQ(EngineWithView().text(), QColor(Qt::black));
    EXPECT_EQ(EngineWithView().key(), QStringLiteral("⇧"));
}
