#include "Report.h"
#include "Services/ToastManager.h"
#include "Window/CardUnderTest.h"
#include "Window/Waiting.h"

#include <QFile>

#include <unistd.h>

#include <functional>
#include <string>

// What the capture window keeps in memory: at first, with all that it can show, and after much use,
// half of which is done before the first look, so that growth without an end is seen.

using namespace jotwell;
using namespace jotwell::bench;
using namespace std::chrono_literals;

namespace {

constexpr auto settling = 500ms;
constexpr auto step = 40ms;
constexpr auto toastInterval = 10ms;

double residentMegabytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    require(file.open(QIODevice::ReadOnly), "the memory can be read");
    const double pages = file.readAll().split(' ').at(1).toDouble();
    return pages * static_cast<double>(::sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}

void print(const std::string& name)
{
    rest(settling);
    printFigure(name, residentMegabytes());
}

void repeat(const std::string& name, int times, const std::function<void()>& use)
{
    for (int half = 1; half <= 2; ++half) {
        for (int time = 0; time < times / 2; ++time)
            use();
        print(name + (half == 1 ? ", half" : ""));
    }
}

void open(CardUnderTest& card, void (CardUnderTest::*list)())
{
    (card.*list)();
    rest(step);
    card.clear();
    rest(step);
}

} // namespace

int main(int argc, char** argv)
{
    CardUnderTest card(argc, argv);
    print("started");
    card.takeKeys();
    print("shown");
    card.openPanel();
    print("panel");
    card.openList();
    print("list and panel");
    card.clear();
    repeat("50 toggles", 50, [&card] {
        card.window().hide();
        rest(step);
        card.show();
        rest(step);
    });
    int number = 0;
    repeat("1,000 toasts", 1000, [&number] {
        ToastManager::shared().showError(QStringLiteral("Toast %1").arg(++number).repeated(20));
        rest(toastInterval);
    });
    repeat("100 openings of the list", 100, [&card] { open(card, &CardUnderTest::openList); });
    repeat("100 openings of the panel", 100, [&card] { open(card, &CardUnderTest::openPanel); });
}
