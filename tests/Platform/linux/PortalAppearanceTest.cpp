#include "Platform/linux/PortalAppearance.h"

#include "Platform/linux/FakePortal.h"

#include <QGuiApplication>
#include <QPalette>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>

using namespace jotwell;

namespace {

constexpr int longEnoughToAnswer = 150;
constexpr uint noPreference = 0;
constexpr uint prefersDark = 1;
constexpr uint prefersLight = 2;

void usePalette(const QColor& window)
{
    QPalette palette = QGuiApplication::palette();
    palette.setColor(QPalette::Window, window);
    QGuiApplication::setPalette(palette);
}

bool soon(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 3000);
}

bool isDarkSoon(const DesktopAppearance& appearance, bool isDark = true)
{
    return soon([&] { return appearance.isDark() == isDark; });
}

bool hasHighContrastSoon(const DesktopAppearance& appearance, bool hasHighContrast = true)
{
    return soon([&] { return appearance.hasHighContrast() == hasHighContrast; });
}

class PortalAppearanceTest : public testing::Test {
protected:
    PortalAppearanceTest() { usePalette(Qt::white); }
    ~PortalAppearanceTest() override { QGuiApplication::setPalette(m_palette); }

private:
    const QPalette m_palette = QGuiApplication::palette();
};

} // namespace

TEST_F(PortalAppearanceTest, TakesOverWhatThePortalTells)
{
    FakePortal portal;
    portal.setColorScheme(prefersDark);
    portal.setContrast(1U);
    PortalAppearance appearance;
    EXPECT_FALSE(appearance.isDark()) << "the portal is asked without waiting for its answer";
    int changes = 0;
    appearance.setChanged([&changes] { ++changes; });
    EXPECT_TRUE(isDarkSoon(appearance));
    EXPECT_TRUE(appearance.hasHighContrast());
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(portal.questions(), 1);
}

TEST_F(PortalAppearanceTest, PreferenceForLightGoesBeforeADarkPalette)
{
    usePalette(Qt::black);
    FakePortal portal;
    portal.setColorScheme(prefersLight);
    const PortalAppearance appearance;
    EXPECT_TRUE(appearance.isDark());
    EXPECT_TRUE(isDarkSoon(appearance, false));
}

TEST_F(PortalAppearanceTest, WithoutAPreferenceFollowsThePalette)
{
    FakePortal portal;
    portal.setColorScheme(noPreference);
    const PortalAppearance appearance;
    ASSERT_TRUE(portal.wasAsked());
    usePalette(Qt::black);
    EXPECT_TRUE(appearance.isDark());
    usePalette(Qt::white);
    EXPECT_FALSE(appearance.isDark());
}

TEST_F(PortalAppearanceTest, WithoutAPortalFollowsThePalette)
{
    PortalAppearance appearance;
    int changes = 0;
    appearance.setChanged([&changes] { ++changes; });
    QTest::qWait(longEnoughToAnswer);
    EXPECT_FALSE(appearance.isDark());
    usePalette(Qt::black);
    EXPECT_TRUE(appearance.isDark());
    EXPECT_FALSE(appearance.hasHighContrast());
    usePalette(QColor(0x202020));
    EXPECT_EQ(changes, 1) << "of another palette that is as dark there is nothing to tell";
}

TEST_F(PortalAppearanceTest, PreferenceHoldsAgainstThePalette)
{
    FakePortal portal;
    portal.setColorScheme(prefersDark);
    const PortalAppearance appearance;
    ASSERT_TRUE(isDarkSoon(appearance));
    usePalette(Qt::black);
    usePalette(Qt::white);
    EXPECT_TRUE(appearance.isDark());
}

TEST_F(PortalAppearanceTest, FollowsEachChange)
{
    FakePortal portal;
    const PortalAppearance appearance;
    ASSERT_TRUE(portal.wasAsked());
    portal.changeColorScheme(prefersDark);
    EXPECT_TRUE(isDarkSoon(appearance));
    portal.changeColorScheme(prefersLight);
    EXPECT_TRUE(isDarkSoon(appearance, false));
    portal.changeContrast(1U);
    EXPECT_TRUE(hasHighContrastSoon(appearance));
    portal.changeContrast(0U);
    EXPECT_TRUE(hasHighContrastSoon(appearance, false));
    EXPECT_EQ(portal.questions(), 1);
}

TEST_F(PortalAppearanceTest, AccessibilitySettingAloneGivesHighContrast)
{
    FakePortal portal;
    portal.setAccessibleContrast(true);
    const PortalAppearance appearance;
    EXPECT_TRUE(hasHighContrastSoon(appearance));
    portal.changeContrast(1U);
    portal.changeAccessibleContrast(false);
    portal.changeColorScheme(prefersDark);
    ASSERT_TRUE(isDarkSoon(appearance));
    EXPECT_TRUE(appearance.hasHighContrast()) << "the other setting still wants it";
}

TEST_F(PortalAppearanceTest, AsksAPortalThatComesLater)
{
    const PortalAppearance appearance;
    QTest::qWait(longEnoughToAnswer);
    FakePortal portal;
    portal.setColorScheme(prefersDark);
    EXPECT_TRUE(isDarkSoon(appearance));
}

TEST_F(PortalAppearanceTest, FollowsTheChangesOfAPortalThatComesLater)
{
    const PortalAppearance appearance;
    QTest::qWait(longEnoughToAnswer);
    FakePortal portal;
    ASSERT_TRUE(portal.wasAsked());
    portal.changeColorScheme(prefersDark);
    EXPECT_TRUE(isDarkSoon(appearance));
}

TEST_F(PortalAppearanceTest, KeepsThePreferenceUntilTheNextPortalTellsAnother)
{
    auto portal = std::make_unique<FakePortal>();
    portal->setColorScheme(prefersDark);
    const PortalAppearance appearance;
    ASSERT_TRUE(isDarkSoon(appearance));
    portal.reset();
    QTest::qWait(longEnoughToAnswer);
    EXPECT_TRUE(appearance.isDark());
    portal = std::make_unique<FakePortal>();
    portal->setColorScheme(prefersLight);
    EXPECT_TRUE(isDarkSoon(appearance, false));
    portal->changeColorScheme(prefersDark);
    EXPECT_TRUE(isDarkSoon(appearance)) << "changes are those of the portal that is there now";
}

TEST_F(PortalAppearanceTest, WaitsForNoAnswer)
{
    FakePortal portal(FakePortal::Kind::silent);
    {
        const PortalAppearance appearance;
        ASSERT_TRUE(portal.wasAsked());
        usePalette(Qt::black);
        EXPECT_TRUE(appearance.isDark());
        portal.changeColorScheme(prefersLight);
        EXPECT_TRUE(isDarkSoon(appearance, false)) << "what it tells by itself counts all the same";
    }
    portal.answerAll(prefersDark);
    QTest::qWait(longEnoughToAnswer);
}

TEST_F(PortalAppearanceTest, PutsUpWithAPortalThatRefuses)
{
    FakePortal portal(FakePortal::Kind::refusing);
    const PortalAppearance appearance;
    ASSERT_TRUE(portal.wasAsked());
    QTest::qWait(longEnoughToAnswer);
    EXPECT_FALSE(appearance.isDark());
    EXPECT_EQ(portal.questions(), 1) << "it isn't asked again and again";
}

TEST_F(PortalAppearanceTest, TakesNothingFromOthersThanThePortal)
{
    FakePortal portal;
    const PortalAppearance appearance;
    ASSERT_TRUE(portal.wasAsked());
    FakePortal impostor(FakePortal::Kind::nameless);
    impostor.changeColorScheme(prefersDark);
    QTest::qWait(longEnoughToAnswer);
    EXPECT_FALSE(appearance.isDark());
}

struct Rubbish {
    const char* name;
    QVariant value;
};

void PrintTo(const Rubbish& rubbish, std::ostream* out)
{
    *out << rubbish.name;
}

class PortalRubbish : public PortalAppearanceTest, public testing::WithParamInterface<Rubbish> {};

TEST_P(PortalRubbish, SaysNothing)
{
    FakePortal portal;
    portal.setColorScheme(GetParam().value);
    portal.setContrast(GetParam().value);
    portal.setAccessibleContrast(GetParam().value);
    const PortalAppearance appearance;
    ASSERT_TRUE(portal.wasAsked());
    QTest::qWait(longEnoughToAnswer);
    EXPECT_FALSE(appearance.isDark());
    EXPECT_FALSE(appearance.hasHighContrast());
    portal.changeColorScheme(prefersDark);
    EXPECT_TRUE(isDarkSoon(appearance));
    portal.changeColorScheme(GetParam().value);
    EXPECT_TRUE(isDarkSoon(appearance, false)) << "which is no preference";
}

INSTANTIATE_TEST_SUITE_P(
    All, PortalRubbish,
    testing::Values(Rubbish{"unknown", 3U}, Rubbish{"largest", 4294967295U},
                    Rubbish{"text", QStringLiteral("1")}, Rubbish{"negative", -1},
                    Rubbish{"fraction", 1.0}, Rubbish{"list", QStringList{QStringLiteral("dark")}},
                    Rubbish{"map", QVariantMap{{QStringLiteral("color-scheme"), 1U}}},
                    Rubbish{"bytes", QByteArray(1000, '\1')}));

TEST_F(PortalAppearanceTest, AnswerOfAnotherShapeSaysNothing)
{
    FakePortal portal(FakePortal::Kind::babbling);
    const PortalAppearance appearance;
    ASSERT_TRUE(portal.wasAsked());
    QTest::qWait(longEnoughToAnswer);
    EXPECT_FALSE(appearance.isDark());
    portal.changeColorScheme(prefersDark);
    EXPECT_TRUE(isDarkSoon(appearance));
}

// Some portals wrap a value once more.
TEST_F(PortalAppearanceTest, UnwrapsValues)
{
    FakePortal portal;
    portal.setColorScheme(QVariant::fromValue(QDBusVariant(prefersDark)));
    const PortalAppearance appearance;
    EXPECT_TRUE(isDarkSoon(appearance));
}
