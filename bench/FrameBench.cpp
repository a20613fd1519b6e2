#include "Report.h"

#include "Services/ToastManager.h"
#include "Window/BareWindow.h"
#include "Window/CardUnderTest.h"
#include "Window/FrameWatch.h"

#include <QStyleHints>

#include <functional>
#include <string>
#include <vector>

// FrameBench [VAULT]: sets going what moves on the card, by turns with a bare window that moves,
// and takes the times between frames. With a vault once more while its index is built.

using namespace jotwell;
using namespace jotwell::bench;
using namespace std::chrono_literals;

namespace {

constexpr int usualRounds = 5;
constexpr auto keyInterval = 33ms; // of a key that is held
constexpr auto settling = 300ms;
constexpr auto movement = 300ms; // of toast and strip
constexpr auto spring = 450ms;
constexpr auto spinnerStep = 100ms;
constexpr int rowsDown = 200;

/// Something that moves.
struct Subject {
    std::string name;
    std::function<void()> prepare;
    std::function<void(FrameWatch&)> run;
    int rounds = usualRounds;
};

class FrameBench {
public:
    explicit FrameBench(CardUnderTest& card) : m_card(card)
    {
        m_bare.show();
        rest(settling);
        m_card.takeKeys();
        QObject::connect(&m_card.window(), &QQuickWindow::frameSwapped, &m_bare, [this] {
            if (m_watch)
                m_watch->frame();
        });
        m_bare.drawn = [this] {
            if (m_bareWatch)
                m_bareWatch->frame();
        };
    }

    void measure(const std::string& condition)
    {
        FrameWatch bare;
        for (const Subject& subject : subjects()) {
            FrameWatch ours;
            m_watch = &ours;
            for (int round = 0; round < subject.rounds; ++round) {
                m_card.clear();
                subject.prepare();
                rest(settling);
                subject.run(ours);
            }
            m_watch = nullptr;
            ours.print(subject.name + condition);
            moveBare(bare);
        }
        bare.print("frames reference" + condition);
    }

    /// The index is being built.
    void measureSpinner()
    {
        FrameWatch watch;
        m_watch = &watch;
        m_card.clear();
        for (int round = 0; round < usualRounds; ++round)
            watch.watch([] {}, 1000ms, spinnerStep);
        m_watch = nullptr;
        watch.print("spinner, build");
    }

private:
    [[nodiscard]] std::vector<Subject> subjects()
    {
        const auto nothing = [] {};
        return {
            {"spring and flash", nothing, [this](FrameWatch& watch) { runCommand(watch); }},
            {"toast", nothing, [](FrameWatch& watch) { showToast(watch); }},
            {"strip", nothing, [this](FrameWatch& watch) { showStrip(watch); }},
            {"opening the list", nothing,
             [this](FrameWatch& watch) { watch.watchFirst([this] { m_card.openList(); }); }},
            {"opening the panel", nothing,
             [this](FrameWatch& watch) { watch.watchFirst([this] { m_card.openPanel(); }); }},
            {"arrows in the list", [this] { m_card.openList(); },
             [this](FrameWatch& watch) { holdDown(watch, rowsDown); }, 1},
            {"arrows in the panel", [this] { enterPanel(); },
             [this](FrameWatch& watch) { holdDown(watch, CardUnderTest::resultCount); }, 2},
        };
    }

    void runCommand(FrameWatch& watch)
    {
        m_card.write(QStringLiteral("/recent  $All Folders "));
        rest(settling);
        watch.watch([this] { m_card.press(Qt::Key_Return, Qt::ControlModifier); }, spring);
    }

    static void showToast(FrameWatch& watch)
    {
        ToastManager& toasts = ToastManager::shared();
        watch.watch([&] { toasts.showError(noteText(200)); }, movement);
        watch.watch([&] { toasts.dismiss(); }, movement);
    }

    void showStrip(FrameWatch& watch)
    {
        watch.watch([this] { m_card.startBuild(); }, movement);
    }

    void enterPanel()
    {
        m_card.openPanel();
        m_card.press(Qt::Key_Tab);
        require(m_card.view().searchResultsHaveFocus(), "the panel has the arrow keys");
    }

    void holdDown(FrameWatch& watch, int times)
    {
        QTimer keys;
        keys.setTimerType(Qt::PreciseTimer);
        QObject::connect(&keys, &QTimer::timeout, &keys, [this] { m_card.press(Qt::Key_Down); });
        watch.watch([&keys] { keys.start(keyInterval); }, times * keyInterval);
    }

    // The least that a movement takes: its clock is that of the card's.
    void moveBare(FrameWatch& watch)
    {
        QTimer clock;
        clock.setTimerType(Qt::PreciseTimer);
        int step = 0;
        QObject::connect(&clock, &QTimer::timeout, &clock,
                         [&] { m_bare.setCardHeight(164 + step++ % 100); });
        m_bareWatch = &watch;
        watch.watch([&clock] { clock.start(16ms); }, movement);
        m_bareWatch = nullptr;
    }

    CardUnderTest& m_card;
    BareWindow m_bare;
    FrameWatch* m_watch = nullptr;
    FrameWatch* m_bareWatch = nullptr;
};

} // namespace

int main(int argc, char** argv)
{
    CardUnderTest card(argc, argv);
    QGuiApplication::styleHints()->setCursorFlashTime(0); // between its frames nothing moves
    FrameBench bench(card);
    card.openPanel();
    bench.measure({});
    if (argc > 1) {
        card.keepBuilding(QString::fromLocal8Bit(argv[1]));
        bench.measure(", build");
        bench.measureSpinner();
    }
}
