#include "Platform/linux/TrayStatusItem.h"

#include <QApplication>
#include <QDBusConnection>
#include <QMenu>
#include <QPixmap>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

/// The desktop's side of the tray, as far as it has to be there.
class FakeNotifierWatcher : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost SCRIPTABLE true)

public:
    explicit FakeNotifierWatcher(bool hasHost) : m_hasHost(hasHost)
    {
        m_bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), this,
                             QDBusConnection::ExportScriptableContents);
        m_bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"));
    }

    ~FakeNotifierWatcher() override
    {
        m_bus.unregisterService(QStringLiteral("org.kde.StatusNotifierWatcher"));
        QDBusConnection::disconnectFromBus(m_bus.name());
    }

    [[nodiscard]] bool hasHost() const { return m_hasHost; }

    void addHost()
    {
        m_hasHost = true;
        emit StatusNotifierHostRegistered();
    }

signals:
    Q_SCRIPTABLE void StatusNotifierHostRegistered();

private:
    bool m_hasHost;
    QDBusConnection m_bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("fake-watcher"));
};

QIcon icon()
{
    QPixmap pixmap(22, 22);
    pixmap.fill(Qt::black);
    return pixmap;
}

bool isShownSoon(const TrayStatusItem& item)
{
    return QTest::qWaitFor([&item] { return item.isShown(); }, 3000);
}

QMenu* menuWith(const char* firstEntry)
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* menu = qobject_cast<QMenu*>(widget);
        if (menu && !menu->isEmpty() &&
            menu->actions().first()->text() == QLatin1String(firstEntry))
            return menu;
    }
    return nullptr;
}

constexpr int longEnoughToAnswer = 150;

} // namespace

TEST(TrayStatusItem, IsShownInATrayThatIsThere)
{
    const FakeNotifierWatcher watcher(true);
    const TrayStatusItem item(icon(), QStringLiteral("Jotwell"));
    EXPECT_FALSE(item.isShown()) << "the tray is asked without waiting for its answer";
    EXPECT_TRUE(isShownSoon(item));
}

TEST(TrayStatusItem, LivesWithoutATray)
{
    TrayStatusItem item(icon(), QStringLiteral("Jotwell"));
    item.setMenu({{QStringLiteral("Quit"), [] {}, {}}});
    QTest::qWait(longEnoughToAnswer);
    EXPECT_FALSE(item.isShown());
}

TEST(TrayStatusItem, IsShownInATrayThatComesLater)
{
    const TrayStatusItem item(icon(), QStringLiteral("Jotwell"));
    QTest::qWait(longEnoughToAnswer);
    ASSERT_FALSE(item.isShown());
    const FakeNotifierWatcher watcher(true);
    EXPECT_TRUE(isShownSoon(item));
}

TEST(TrayStatusItem, WaitsForTheHostBehindTheWatcher)
{
    FakeNotifierWatcher watcher(false);
    const TrayStatusItem item(icon(), QStringLiteral("Jotwell"));
    QTest::qWait(longEnoughToAnswer);
    ASSERT_FALSE(item.isShown());
    watcher.addHost();
    EXPECT_TRUE(isShownSoon(item));
}

TEST(TrayStatusItem, MenuMayBeReplacedFromItsOwnEntry)
{
    const FakeNotifierWatcher watcher(true);
    TrayStatusItem item(icon(), QStringLiteral("Jotwell"));
    ASSERT_TRUE(isShownSoon(item));
    QPointer<QMenu> menu;
    bool isThereBehindIt = false;
    const auto replace = [&] {
        item.setMenu({});
        isThereBehindIt = !menu.isNull();
    };
    item.setMenu({{QStringLiteral("Open"), replace, {}}, {}, {QStringLiteral("Quit"), [] {}, {}}});
    menu = menuWith("Open");
    ASSERT_FALSE(menu.isNull());
    menu->actions().first()->trigger();
    EXPECT_TRUE(isThereBehindIt);
    EXPECT_TRUE(QTest::qWaitFor([&menu] { return menu.isNull(); }));
}

TEST(TrayStatusItem, EntryMayBeOutOfUse)
{
    TrayStatusItem item(icon(), QStringLiteral("Jotwell"));
    MenuEntry entry{QStringLiteral("Check"), [] {}, {}};
    entry.isEnabled = false;
    item.setMenu({entry, {}, {QStringLiteral("Quit"), [] {}, {}}});
    const QMenu* const menu = menuWith("Check");
    ASSERT_NE(menu, nullptr);
    EXPECT_FALSE(menu->actions().first()->isEnabled());
    EXPECT_TRUE(menu->actions().last()->isEnabled());
}

TEST(TrayStatusItem, TitleIsShownAsItIs)
{
    TrayStatusItem item(icon(), QStringLiteral("Jotwell"));
    item.setMenu({{QStringLiteral("Notes & more"), [] {}, {}}});
    EXPECT_NE(menuWith("Notes && more"), nullptr) << "as menus write it";
}

#include "TrayStatusItemTest.moc"
