#include "Samples.h"

#include "Platform/NativeParts.h"
#include "Platform/NativePlatform.h"
#include "Platform/WindowSystem.h"
#include "Services/CommandService.h"
#include "Services/SharedServices.h"
#include "Services/ToastManager.h"
#include "Views/FloatingWindow.h"
#include "Views/FloatingWindowView.h"
#include "Views/ViewResources.h"

#include <QApplication>
#include <QEventLoop>
#include <QPainter>
#include <QQuickWindow>
#include <QRasterWindow>
#include <QTemporaryDir>
#include <QTimer>

#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(JotwellPlugin)

// Shows and hides the capture window, by turns with a window of the same size that does nothing but
// fill itself, and times each from the call that shows it to the end of its first frame.

using namespace jotwell;

namespace {

constexpr int warmUpRounds = 5;
constexpr int rounds = 150;
constexpr int restBetweenShows = 40; // milliseconds, for the window manager to settle

/// The least that a resident Qt window can do.
class BareWindow : public QRasterWindow {
public:
    BareWindow()
    {
        setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        resize(FloatingWindow::contentSize);
        QSurfaceFormat transparent = format();
        transparent.setAlphaBufferSize(8);
        setFormat(transparent);
    }

    std::function<void()> painted;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter(this).fillRect(30, 30, width() - 60, 164, Qt::white);
    }

    bool event(QEvent* event) override
    {
        const bool handled = QRasterWindow::event(event);
        if (event->type() == QEvent::Expose && isExposed() && painted)
            std::exchange(painted, {})();
        return handled;
    }
};

void rest(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

// Long enough for any frame; a window manager that never maps a window must not hang the bench.
void execOrGiveUp(QEventLoop& loop)
{
    QTimer::singleShot(5000, &loop, [] { std::exit(EXIT_FAILURE); });
    loop.exec();
}

Samples::Clock::duration timedShow(FloatingWindow& window)
{
    QEventLoop loop;
    Samples::Clock::time_point end;
    QObject::connect(&window, &QQuickWindow::frameSwapped, &loop, [&] {
        end = Samples::Clock::now();
        loop.quit();
    });
    const auto start = Samples::Clock::now();
    window.centre();
    window.makeKeyAndOrderFront();
    execOrGiveUp(loop);
    return end - start;
}

Samples::Clock::duration timedShow(BareWindow& window)
{
    QEventLoop loop;
    Samples::Clock::time_point end;
    window.painted = [&] {
        end = Samples::Clock::now();
        loop.quit();
    };
    const auto start = Samples::Clock::now();
    window.show();
    window.raise();
    window.requestActivate();
    execOrGiveUp(loop);
    return end - start;
}

template <typename Window>
void addLaterShow(Window& window, Samples& samples, bool counts)
{
    window.hide();
    rest(restBetweenShows);
    const auto time = timedShow(window);
    if (counts)
        samples.add(time);
    rest(restBetweenShows);
    window.hide();
}

} // namespace

int main(int argc, char** argv)
{
    QQuickWindow::setDefaultAlphaBuffer(true);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    installFonts();

    const QTemporaryDir folder;
    const NativePlatform native(folder.filePath(QStringLiteral("Jotwell.ini")), folder.path());
    const Platform& platform = native.platform();
    const auto windows = makeWindowSystem();
    installPlatform(platform);
    {
        FloatingWindowView view(InputServices::shared(platform.scheduler), ToastManager::shared());
        FloatingWindow window(view, *windows);
        BareWindow bare;

        Samples first;
        first.add(timedShow(window));
        first.print("first show");
        Samples firstBare;
        window.hide();
        rest(restBetweenShows);
        firstBare.add(timedShow(bare));
        firstBare.print("first show reference");
        bare.hide();

        const bool onlyFirst = argc > 1 && QByteArrayView(argv[1]) == "--first";
        Samples later;
        Samples laterBare;
        for (int round = 0; !onlyFirst && round < warmUpRounds + rounds; ++round) {
            addLaterShow(window, later, round >= warmUpRounds);
            addLaterShow(bare, laterBare, round >= warmUpRounds);
        }
        if (!onlyFirst) {
            later.print("later show");
            laterBare.print("later show reference");
        }
    }
    releaseSharedServices();
}
