#include "Report.h"
#include "Samples.h"

#include "Window/CardUnderTest.h"
#include "Window/Waiting.h"

#include <QEventLoop>
#include <QKeyEvent>
#include <QTextEdit>
#include <QTimer>

#include <functional>
#include <string>

// TypingBench [VAULT]: types into the capture window, by turns with a plain text field of widgets
// of the same size and text, and times the key press by itself, and with the drawing that it
// causes. With a vault its index is built during the last rows.

using namespace jotwell;
using namespace jotwell::bench;

namespace {

constexpr int lengths[] = {200, 2000, 20000};
constexpr int longest = 20000;
constexpr int warmUpKeys = 20;
constexpr int keys = 130;
constexpr int keysBeforeRestart = 50;
constexpr std::chrono::milliseconds settling(300); // for the window manager

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

/// What is open while the user types.
enum class Open { nothing, list, panel, listAndPanel };

class TypingBench {
public:
    explicit TypingBench(CardUnderTest& card) : m_card(card), m_drawing(card.window())
    {
        m_plain.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
        m_plain.setAcceptRichText(false);
        m_plain.resize(776, 140);
        m_plain.show();
        m_plain.setFocus();
        rest(settling);
        m_card.takeKeys();
    }

    void run(const std::string& name, const QString& text, Open open = Open::nothing)
    {
        Samples event;
        Samples whole;
        Samples plainEvent;
        Samples plainWhole;
        for (int key = 0; key < warmUpKeys + keys; ++key) {
            if (key % keysBeforeRestart == 0)
                restart(text);
            const QChar character = CardUnderTest::typed(key % keysBeforeRestart);
            const KeyTimes ours = timedKey(m_card.window(), m_drawing, character);
            const KeyTimes plain = timedKey(m_plain, m_plainDrawing, character);
            requireTaken(character, open);
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
        m_card.write(text);
        m_plain.setPlainText(text);
        m_plain.moveCursor(QTextCursor::End);
        m_drawing.wait();
        m_plainDrawing.wait();
    }

    void requireTaken(QChar character, Open open)
    {
        require(m_card.view().commandTemplateState().text().endsWith(character),
                "the key has reached the text");
        require((m_card.rowsInList() > 0) == (open == Open::list || open == Open::listAndPanel),
                "the list is open while it is to be");
        require(m_card.view().showSearchResults() ==
                    (open == Open::panel || open == Open::listAndPanel),
                "the panel is open while it is to be");
    }

    CardUnderTest& m_card;
    DrawingTimer m_drawing;
    QTextEdit m_plain;
    DrawingTimer m_plainDrawing{m_plain};
};

void measureLength(CardUnderTest& card, TypingBench& bench, int length)
{
    const std::string size = std::to_string(length).insert(0, 1, ' ');
    const QString note = noteText(length);
    card.clear();
    bench.run("words" + size,
              QStringLiteral("/new_note  $%1 %2").arg(CardUnderTest::nameOfTemplate(117), note));
    bench.run("folder" + size,
              QStringLiteral("/recent  $%1 %2").arg(CardUnderTest::nameOfFolder(333), note));
    bench.run("template list" + size, QStringLiteral("/new_note %1$T").arg(note), Open::list);
}

void measureLists(CardUnderTest& card, TypingBench& bench)
{
    const QString words = QStringLiteral("/recent  $All Folders ") + noteText(longest);
    const QString folder = QStringLiteral("/recent %1$F").arg(noteText(longest));
    card.clear();
    bench.run("folder list", folder, Open::list);
    card.openPanel();
    bench.run("panel", words, Open::panel);
    bench.run("folder list and panel", folder, Open::listAndPanel);
}

} // namespace

int main(int argc, char** argv)
{
    CardUnderTest card(argc, argv);
    TypingBench bench(card);
    for (const int length : lengths)
        measureLength(card, bench, length);
    measureLists(card, bench);
    if (argc > 1) {
        card.clear();
        card.keepBuilding(QString::fromLocal8Bit(argv[1]));
        bench.run("build", QStringLiteral("/recent  $All Folders ") + noteText(longest));
    }
}
