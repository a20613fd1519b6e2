#include "Platform/linux/StateFolder.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

class StateFolderTest : public testing::Test {
protected:
    StateFolderTest() { qputenv("HOME", "/home/ada"); }
    ~StateFolderTest() override
    {
        qputenv("HOME", m_home);
        m_state.isNull() ? qunsetenv("XDG_STATE_HOME") : qputenv("XDG_STATE_HOME", m_state);
    }

private:
    const QByteArray m_home = qgetenv("HOME");
    const QByteArray m_state = qgetenv("XDG_STATE_HOME");
};

TEST_F(StateFolderTest, IsTheOneOfTheEnvironment)
{
    qputenv("XDG_STATE_HOME", "/a/state");
    EXPECT_EQ(stateFile(QStringLiteral("LoginItem")),
              QStringLiteral("/a/state/com.jotwell/LoginItem"));
}

TEST_F(StateFolderTest, IsTheUsualOneWithoutAnAbsolutePath)
{
    const QString usual = QStringLiteral("/home/ada/.local/state/com.jotwell/LoginItem");
    qunsetenv("XDG_STATE_HOME");
    EXPECT_EQ(stateFile(QStringLiteral("LoginItem")), usual);
    for (const char* useless : {"", "state", "./state", "~/state"}) {
        qputenv("XDG_STATE_HOME", useless);
        EXPECT_EQ(stateFile(QStringLiteral("LoginItem")), usual) << useless;
    }
}

} // namespace

} // namespace jotwell
