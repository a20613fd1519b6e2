#include "Platform/linux/PortalFolderPanel.h"

#include "Fakes/FakeFolderPanel.h"
#include "Platform/linux/FakeFolderPortal.h"
#include "Services/LogCapture.h"
#include "Services/ScratchFolder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace jotwell {

namespace {

using Kind = FakeFolderPortal::Kind;

// What lies between an answer and what is made of it.
constexpr int ofTheBus = 50;
constexpr std::chrono::milliseconds patience{200};

QVariantMap chosen(const QStringList& uris)
{
    return {{QStringLiteral("uris"), uris}};
}

class PortalFolderPanelTest : public testing::Test {
protected:
    void makePortal(Kind kind = Kind::listening)
    {
        m_portal = std::make_unique<FakeFolderPortal>(kind);
    }

    void choose(const FolderQuestion& question)
    {
        m_panel.choose(question, nullptr, m_context.get(),
                       [this](const QString& path) { m_chosen.append(path); });
    }
    void choose() { choose({QStringLiteral("Select your vault"), {}, {}}); }

    /// Chooses, and has the portal show its panel.
    void open()
    {
        const qsizetype asked = m_portal->questions().size();
        choose();
        ASSERT_TRUE(m_portal->waitForQuestions(asked + 1));
        QTest::qWait(ofTheBus);
    }

    void respond(uint response, const QVariantMap& results = {})
    {
        m_portal->respond(m_portal->questions().size() - 1, response, results);
        QTest::qWait(ofTheBus);
    }

    /// As if the portal's panel got it from a window of the program.
    static void loseKeyboard() { emit qGuiApp->focusWindowChanged(nullptr); }

    [[nodiscard]] bool otherIsShown() const
    {
        return QTest::qWaitFor([&] { return m_other->question.has_value(); }, 3000);
    }

    /// The whole way once more, after whatever there was.
    void expectWorks()
    {
        open();
        respond(0, chosen({QStringLiteral("file:///v")}));
        EXPECT_EQ(m_chosen, QStringList(QStringLiteral("/v")));
        EXPECT_FALSE(m_other->question);
    }

    LogCapture m_log;
    ScratchFolder m_folder;
    std::unique_ptr<FakeFolderPortal> m_portal;
    std::unique_ptr<QObject> m_context = std::make_unique<QObject>();
    QStringList m_chosen;
    FakeFolderPanel* m_other = new FakeFolderPanel; // the panel's own
    PortalFolderPanel m_panel{std::unique_ptr<FolderPanel>(m_other), patience};
};

TEST_F(PortalFolderPanelTest, AsksForOneFolder)
{
    makePortal();
    const QString folder = m_folder.path();
    choose({QStringLiteral("Select your vault"), QStringLiteral("Select"), folder});
    ASSERT_TRUE(m_portal->waitForQuestions(1));
    const auto& [window, title, options, request] = m_portal->questions().first();
    EXPECT_EQ(window, QString());
    EXPECT_EQ(title, QStringLiteral("Select your vault"));
    EXPECT_EQ(options[QStringLiteral("directory")], QVariant(true));
    EXPECT_EQ(options[QStringLiteral("modal")], QVariant(true));
    EXPECT_EQ(options[QStringLiteral("multiple")], QVariant(false));
    EXPECT_EQ(options[QStringLiteral("accept_label")], QVariant(QStringLiteral("Select")));
    EXPECT_EQ(options[QStringLiteral("current_folder")],
              QVariant(QByteArray(QFile::encodeName(folder) + '\0')));
}

TEST_F(PortalFolderPanelTest, BeginsAtHomeAndWithTheDesktopsOwnWords)
{
    makePortal();
    choose();
    ASSERT_TRUE(m_portal->waitForQuestions(1));
    const QVariantMap& options = m_portal->questions().first().options;
    EXPECT_FALSE(options.contains(QStringLiteral("accept_label")));
    EXPECT_EQ(options[QStringLiteral("current_folder")],
              QVariant(QByteArray(QFile::encodeName(QDir::homePath()) + '\0')));
}

TEST_F(PortalFolderPanelTest, PromptIsTheTitleWhereThereIsNoMessage)
{
    makePortal();
    choose({{}, QStringLiteral("Select"), {}});
    ASSERT_TRUE(m_portal->waitForQuestions(1));
    EXPECT_EQ(m_portal->questions().first().title, QStringLiteral("Select"));
}

TEST_F(PortalFolderPanelTest, ChosenFolderIsGivenOnce)
{
    makePortal();
    open();
    EXPECT_EQ(m_chosen, QStringList());
    respond(0, chosen({QStringLiteral("file:///home/ada/My%20Vault%20%C3%A4")}));
    respond(0, chosen({QStringLiteral("file:///other")}));
    EXPECT_EQ(m_chosen, QStringList(QStringLiteral("/home/ada/My Vault \u00e4")));
    EXPECT_FALSE(m_other->question);
    EXPECT_EQ(m_portal->closed(), QStringList());
    EXPECT_EQ(m_log.errors(), QStringList());
}

TEST_F(PortalFolderPanelTest, UserMayTakeTheirTime)
{
    makePortal();
    open();
    QTest::qWait(2 * static_cast<int>(patience.count()));
    EXPECT_FALSE(m_other->question);
    respond(0, chosen({QStringLiteral("file:///v")}));
    EXPECT_EQ(m_chosen, QStringList(QStringLiteral("/v")));
}

TEST_F(PortalFolderPanelTest, FirstFolderOfThisMachineIsTaken)
{
    makePortal();
    open();
    respond(0, chosen({QStringLiteral("smb://host/v"), QStringLiteral("file:///a"),
                       QStringLiteral("file:///b")}));
    EXPECT_EQ(m_chosen, QStringList(QStringLiteral("/a")));
}

TEST_F(PortalFolderPanelTest, AnswerWithoutAFolderOfThisMachineIsLogged)
{
    makePortal();
    for (const QVariantMap& results :
         {QVariantMap(), chosen({}), chosen({QStringLiteral("smb://host/v")}),
          chosen({QStringLiteral("file:///%FF")}),
          QVariantMap{{QStringLiteral("uris"), QStringLiteral("file:///not-a-list")}}}) {
        open();
        respond(0, results);
    }
    EXPECT_EQ(m_chosen.size(), 1) << "one name is as good as a list of one";
    EXPECT_FALSE(m_other->question);
    EXPECT_EQ(m_log.errors().size(), 4);
    EXPECT_TRUE(m_log.errors().value(2).endsWith(QStringLiteral(" smb://host/v")));
}

TEST_F(PortalFolderPanelTest, CancelledPanelGivesNothing)
{
    makePortal();
    open();
    respond(1);
    EXPECT_EQ(m_chosen, QStringList());
    EXPECT_FALSE(m_other->question);
    expectWorks();
}

TEST_F(PortalFolderPanelTest, OtherPanelTakesThePlaceOfOneThatFails)
{
    makePortal();
    open();
    respond(2);
    ASSERT_TRUE(otherIsShown());
    EXPECT_EQ(m_other->question->message, QStringLiteral("Select your vault"));
    m_other->answer(QStringLiteral("/other"));
    EXPECT_EQ(m_chosen, QStringList(QStringLiteral("/other")));
}

TEST_F(PortalFolderPanelTest, PanelThatHadTheKeyboardIsClosedAndHasNotFailed)
{
    makePortal();
    open();
    loseKeyboard();
    respond(2);
    EXPECT_FALSE(m_other->question);
    EXPECT_EQ(m_chosen, QStringList());

    open();
    respond(2);
    EXPECT_TRUE(m_other->question) << "what was before counts no more";
}

TEST_F(PortalFolderPanelTest, SilentPortalIsReplacedWhereverTheKeyboardIs)
{
    makePortal(Kind::silent);
    choose();
    ASSERT_TRUE(m_portal->waitForQuestions(1));
    loseKeyboard();
    EXPECT_TRUE(otherIsShown());
}

TEST_F(PortalFolderPanelTest, RequestIsFoundWhateverItsName)
{
    makePortal(Kind::naming);
    expectWorks();
}

TEST_F(PortalFolderPanelTest, OtherPanelIsShownWithoutAPortal)
{
    choose();
    EXPECT_FALSE(m_other->question) << "nothing is waited for";
    EXPECT_TRUE(otherIsShown());
}

class PortalFolderPanelUselessTest : public PortalFolderPanelTest,
                                     public testing::WithParamInterface<Kind> {};

TEST_P(PortalFolderPanelUselessTest, OtherPanelIsShown)
{
    makePortal(GetParam());
    QElapsedTimer time;
    time.start();
    choose();
    EXPECT_LT(time.elapsed(), patience.count()) << "nothing is waited for";
    ASSERT_TRUE(otherIsShown());
    m_other->cancel();

    choose();
    EXPECT_TRUE(otherIsShown()) << "the next time as well";
}

INSTANTIATE_TEST_SUITE_P(Kinds, PortalFolderPanelUselessTest,
                         testing::Values(Kind::without, Kind::old, Kind::refusing, Kind::silent,
                                         Kind::speechless));

TEST_F(PortalFolderPanelTest, PortalThatIsTooOldIsNotAskedForFiles)
{
    makePortal(Kind::old);
    choose();
    ASSERT_TRUE(otherIsShown());
    EXPECT_TRUE(m_portal->questions().isEmpty());
}

TEST_F(PortalFolderPanelTest, PanelThatComesTooLateIsClosed)
{
    makePortal(Kind::silent);
    choose();
    ASSERT_TRUE(otherIsShown());
    ASSERT_TRUE(m_portal->waitForQuestions(1));
    EXPECT_TRUE(m_portal->waitForClosed(m_portal->questions().first().request));
    respond(0, chosen({QStringLiteral("file:///late")}));
    EXPECT_EQ(m_chosen, QStringList());
}

TEST_F(PortalFolderPanelTest, PanelGoesWithWhoeverAsked)
{
    makePortal();
    open();
    m_context.reset();
    EXPECT_TRUE(m_portal->waitForClosed(m_portal->questions().first().request));
    respond(0, chosen({QStringLiteral("file:///v")}));
    EXPECT_EQ(m_chosen, QStringList());
    m_context = std::make_unique<QObject>();
    expectWorks();
}

TEST_F(PortalFolderPanelTest, NobodyIsAskedForWhoHasGoneAtOnce)
{
    makePortal();
    choose();
    m_context.reset();
    QTest::qWait(2 * ofTheBus);
    EXPECT_TRUE(m_portal->questions().isEmpty());
    EXPECT_FALSE(m_other->question);
}

TEST_F(PortalFolderPanelTest, SecondPanelIsNotOpened)
{
    makePortal();
    choose();
    open();
    choose();
    QTest::qWait(2 * ofTheBus);
    EXPECT_EQ(m_portal->questions().size(), 1);
    EXPECT_EQ(m_portal->closed(), QStringList());
    respond(0, chosen({QStringLiteral("file:///v")}));
    EXPECT_EQ(m_chosen, QStringList(QStringLiteral("/v")));
}

TEST_F(PortalFolderPanelTest, PortalThatIsStartedAnewHasCancelled)
{
    makePortal();
    open();
    m_portal.reset();
    QTest::qWait(ofTheBus);
    makePortal();
    expectWorks();
}

TEST_F(PortalFolderPanelTest, PortalThatGoesBeforeItRepliesIsReplaced)
{
    makePortal(Kind::silent);
    choose();
    ASSERT_TRUE(m_portal->waitForQuestions(1));
    m_portal.reset();
    EXPECT_TRUE(otherIsShown());
}

TEST(PortalFolderPanelEndTest, TakesTheQuestionBack)
{
    FakeFolderPortal portal;
    QObject context;
    auto panel = std::make_unique<PortalFolderPanel>(std::make_unique<FakeFolderPanel>());
    panel->choose({}, nullptr, &context, [](const QString&) {});
    ASSERT_TRUE(portal.waitForQuestions(1));
    panel.reset();
    EXPECT_TRUE(portal.waitForClosed(portal.questions().first().request));
}

} // namespace

} // namespace jotwell
