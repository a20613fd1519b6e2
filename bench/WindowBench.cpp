#include "Samples.h"

#include "Window/BareWindow.h"
#include "Window/CardUnderTest.h"
#include "Window/Waiting.h"

#include <string>

// WindowBench [--first] [VAULT]: shows and hides the capture window, by turns with a window of the
// same size that does nothing but fill itself, and times each from the call that shows it to the
// end of its first frame. With a vault its index is built meanwhile.

using namespace jotwell;
using namespace jotwell::bench;
using namespace std::chrono_literals;

namespace {

constexpr int warmUpRounds = 5;
constexpr int rounds = 60;
constexpr auto restBetweenShows = 40ms; // for the window manager to settle
constexpr auto headStart = 50ms;        // of a build

Samples::Clock::duration timedShow(CardUnderTest& card)
{
    QEventLoop loop;
    Samples::Clock::time_point end;
    QObject::connect(&card.window(), &QQuickWindow::frameSwapped, &loop, [&] {
        end = Samples::Clock::now();
        loop.quit();
    });
    const auto start = Samples::Clock::now();
    card.show();
    execOrGiveUp(loop, "the first frame of the card");
    return end - start;
}

Samples::Clock::duration timedShow(BareWindow& window)
{
    QEventLoop loop;
    Samples::Clock::time_point end;
    window.shown = [&] {
        end = Samples::Clock::now();
        loop.quit();
    };
    const auto start = Samples::Clock::now();
    window.show();
    window.raise();
    window.requestActivate();
    execOrGiveUp(loop, "the first frame of the bare window");
    return end - start;
}

template <typename Shown>
Samples::Clock::duration timedShow(Shown& shown, QWindow& window)
{
    window.hide();
    rest(restBetweenShows);
    const auto time = timedShow(shown);
    rest(restBetweenShows);
    window.hide();
    return time;
}

class WindowBench {
public:
    explicit WindowBench(CardUnderTest& card) : m_card(card) {}

    void first(const std::string& name)
    {
        Samples ours;
        Samples bare;
        ours.add(timedShow(m_card, m_card.window()));
        bare.add(timedShow(m_bare, m_bare));
        print(name, ours, bare);
    }

    void later(const std::string& name)
    {
        Samples ours;
        Samples bare;
        for (int round = 0; round < warmUpRounds + rounds; ++round) {
            const auto time = timedShow(m_card, m_card.window());
            const auto bareTime = timedShow(m_bare, m_bare);
            if (round < warmUpRounds)
                continue;
            ours.add(time);
            bare.add(bareTime);
        }
        print(name, ours, bare);
    }

private:
    static void print(const std::string& name, const Samples& ours, const Samples& bare)
    {
        ours.print(name);
        bare.print(name + " reference");
    }

    CardUnderTest& m_card;
    BareWindow m_bare;
};

void showFirst(int& argc, char** argv, const QString& vault)
{
    CardUnderTest card(argc, argv, 0);
    WindowBench bench(card);
    if (!vault.isEmpty()) {
        card.keepBuilding(vault);
        rest(headStart);
    }
    bench.first("first show");
}

void showLater(int& argc, char** argv, const QString& vault)
{
    CardUnderTest card(argc, argv);
    WindowBench bench(card);
    bench.first("first show");
    bench.later("later show");
    card.openPanel();
    card.openList();
    bench.later("later show, list and panel");
    if (vault.isEmpty())
        return;
    card.clear();
    card.keepBuilding(vault);
    bench.later("later show, build");
}

} // namespace

int main(int argc, char** argv)
{
    const bool onlyFirst = argc > 1 && std::string(argv[1]) == "--first";
    const int vaultAt = onlyFirst ? 2 : 1;
    const QString vault = argc > vaultAt ? QString::fromLocal8Bit(argv[vaultAt]) : QString();
    if (onlyFirst)
        showFirst(argc, argv, vault);
    else
        showLater(argc, argv, vault);
}
