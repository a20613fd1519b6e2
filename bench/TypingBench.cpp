#include "Samples.h"

#include "Models/ObsidianTemplate.h"
#include "Platform/NativeParts.h"
#include "Platform/NativePlatform.h"
#include "Platform/WindowSystem.h"
#include "Services/SettingsService.h"
#include "Services/SharedServices.h"
#include "Services/ToastManager.h"
#include "Views/FloatingWindow.h"
#include "Views/FloatingWindowView.h"
#include "Views/ViewResources.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QTimer>

#include <QtQml/qqmlextensionplugin.h>

#include <functional>
#include <string>

Q_IMPORT_QML_PLUGIN(JotwellPlugin)

// Types into the capture window, by turns with a plain text field of widgets of the same size and
// text, and times the key press by itself, and with the drawing that it causes.

using namespace jotwell;

namespace {

constexpr int templateCount = 200;
constexpr int folderCount = 500;
constexpr int lengths[] = {200, 2000, 20000};
constexpr int warmUpKeys = 20;
constexpr int keys = 300;
constexpr int keysBeforeRestart = 50;

struct KeyTimes {
    Samples::Clock::duration event{};
    Samples::Clock::duration drawing{};
};

/// Draws when it is asked to be drawn, and takes the time of it.
class DrawingTimer : public QObject {
public:
    explicit DrawingTimer(QObject& target) : m_target(target) { target.installEventFilter(this); }

    /// Waits until what is to be drawn is drawn; gives the time that it took, all rounds together.
    Samples::Clock::duration wait()
    {
        using namespace std::chrono_literals;
        m_time = {};
        QEventLoop loop;
        m_drawn = [&loop] { loop.quit(); };
        QTimer::singleShot(100, &loop, &QEventLoop::quit);
        loop.exec();
        m_drawn = {};
        return m_time;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::UpdateRequest || m_isDrawing)
            return QObject::eventFilter(watched, event);
        m_isDrawing = true;
        const auto start = Samples::Clock::now();
        QCoreApplication::sendEvent(&m_target, event);
        m_time += Samples::Clock::now() - start;
        m_isDrawing = false;
        if (m_drawn)
            m_drawn();
        return true;
    }

private:
    QObject& m_target;
    Samples::Clock::duration m_time{};
    std::function<void()> m_drawn;
    bool m_isDrawing = false;
};

KeyTimes timedKey(QObject& window, DrawingTimer& drawing, QChar character)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, character);
    const auto start = Samples::Clock::now();
    QCoreApplication::sendEvent(&window, &press);
    const auto end = Samples::Clock::now();
    return {end - start, drawing.wait()};
}

QString noteText(int length)
{
    static const char* const lines[] = {
        "A line of the note with *some* words, **bold** ones and a [link](https://example.org).\n",
        "- an item of a list, with `code` in it and a tag #garden behind a blank\n",
        "Plain words follow one another until the line is full, as they do in most notes.\n",
        "## A heading\n",
        "Call Ada about the garden and the tools, and don't forget the 12 boxes #tools\n",
    };
    QString text;
    for (int line = 0; text.size() < length; line = (line + 1) % 5)
        text += QString::fromLatin1(lines[line]);
    text.truncate(length);
    return text + u'\n';
}

ObsidianTemplates templates()
{
    ObsidianTemplates all;
    for (int number = 0; number < templateCount; ++number)
        all.append({QUuid::createUuid(), QStringLiteral("Template %1").arg(number),
                    QStringLiteral("# {{title}}\n\n{{content}}\n").repeated(20), true,
                    TemplateType::regular()});
    return all;
}

void makeFolders(const QString& vault)
{
    for (int number = 0; number < folderCount; ++number)
        QDir(vault).mkdir(QStringLiteral("Folder %1").arg(number));
}

class TypingBench {
public:
    TypingBench(FloatingWindowView& view, FloatingWindow& window)
        : m_view(view), m_window(window), m_drawing(window)
    {
        m_plain.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
        m_plain.setAcceptRichText(false);
        m_plain.resize(776, 140);
        m_plain.show();
        m_plain.setFocus();
    }

    void run(const std::string& name, const QString& before, int length, const QString& behind)
    {
        const QString text = before + noteText(length) + behind;
        Samples event;
        Samples whole;
        Samples plainEvent;
        Samples plainWhole;
        for (int key = 0; key < warmUpKeys + keys; ++key) {
            if (key % keysBeforeRestart == 0)
                restart(text);
            const QChar character = key % 7 == 6 ? u'e' : QChar(u'a' + key % 7);
            const KeyTimes ours = timedKey(m_window, m_drawing, character);
            const KeyTimes plain = timedKey(m_plain, m_plainDrawing, character);
            if (key < warmUpKeys)
                continue;
            event.add(ours.event);
            whole.add(ours.event + ours.drawing);
            plainEvent.add(plain.event);
            plainWhole.add(plain.event + plain.drawing);
        }
        event.print(name + " event");
        whole.print(name);
        plainEvent.print(name + " event reference");
        plainWhole.print(name + " reference");
    }

private:
    void restart(const QString& text)
    {
        CommandTemplateState& state = m_view.commandTemplateState();
        state.setText(text);
        state.handleTextChange();
        state.setForceTextUpdate(true);
        m_plain.setPlainText(text);
        m_plain.moveCursor(QTextCursor::End);
        m_drawing.wait();
        m_plainDrawing.wait();
    }

    FloatingWindowView& m_view;
    FloatingWindow& m_window;
    DrawingTimer m_drawing;
    QTextEdit m_plain;
    DrawingTimer m_plainDrawing{m_plain};
};

} // namespace

int main(int argc, char** argv)
{
    QQuickWindow::setDefaultAlphaBuffer(true);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    installFonts();

    const QTemporaryDir folder;
    const QTemporaryDir vault;
    makeFolders(vault.path());
    const NativePlatform native(folder.filePath(QStringLiteral("Jotwell.ini")), folder.path());
    const Platform& platform = native.platform();
    const auto windows = makeWindowSystem();
    installPlatform(platform);
    SettingsService::shared().setObsidianFolderPath(vault.path());
    SettingsService::shared().setObsidianTemplates(templates());
    {
        FloatingWindowView view(InputServices::shared(platform.scheduler), ToastManager::shared());
        FloatingWindow window(view, *windows);
        window.centre();
        window.makeKeyAndOrderFront();
        TypingBench bench(view, window);
        for (const int length : lengths) {
            if (argc > 1 && length != QByteArray(argv[1]).toInt())
                continue; // only the length that was asked for
            const std::string size = " " + std::to_string(length);
            bench.run("words" + size, QStringLiteral("/new_note  $Template 117 "), length, {});
            bench.run("folder" + size, QStringLiteral("/recent  $Folder 333 "), length, {});
            bench.run("template list" + size, QStringLiteral("/new_note "), length,
                      QStringLiteral("$T"));
        }
    }
    releaseSharedServices();
}
