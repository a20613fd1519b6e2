#include "Window/CardUnderTest.h"

#include "Index/TimedTask.h"
#include "Models/ObsidianTemplate.h"
#include "Platform/NativeParts.h"
#include "Platform/Platform.h"
#include "Report.h"
#include "Services/CommandService.h"
#include "Services/ObsidianService.h"
#include "Services/SettingsService.h"
#include "Services/SharedServices.h"
#include "Services/TagIndexService.h"
#include "Services/ToastManager.h"
#include "Views/ViewResources.h"
#include "Window/Waiting.h"

#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QThreadPool>

#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(JotwellPlugin)

namespace jotwell::bench {

namespace {

constexpr int longestTyping = 60;
constexpr int noteLength = 1600;
const QString query = QStringLiteral("garden tools");

QString typedText()
{
    QString text;
    for (int key = 0; key < longestTyping; ++key)
        text += CardUnderTest::typed(key);
    return text;
}

ObsidianTemplates templates()
{
    ObsidianTemplates all;
    for (int number = 0; number < CardUnderTest::templateCount; ++number)
        all.append({QUuid::createUuid(), CardUnderTest::nameOfTemplate(number),
                    QStringLiteral("# {{title}}\n\n{{content}}\n").repeated(20), true,
                    TemplateType::regular()});
    return all;
}

void deliver(const NoteSearchResults& results)
{
    CommandService::shared().onSearchResults()(results);
}

} // namespace

CardUnderTest::Program::Program(int& argc, char** argv)
    : application((QQuickWindow::setDefaultAlphaBuffer(true),
                   QQuickWindow::setGraphicsApi(QSGRendererInterface::Software), argc),
                  argv)
{
    QGuiApplication::setQuitOnLastWindowClosed(false);
    installFonts();
}

CardUnderTest::CardUnderTest(int& argc, char** argv, int folders)
    : m_program(argc, argv),
      m_native(m_folder.filePath(QStringLiteral("Jotwell.ini")), m_folder.path()),
      m_windowSystem(makeWindowSystem())
{
    makeVault(folders);
    installPlatform(m_native.platform());
    SettingsService::shared().setObsidianFolderPath(vault());
    SettingsService::shared().setObsidianTemplates(templates());
    m_view = std::make_unique<FloatingWindowView>(
        InputServices::shared(m_native.platform().scheduler), ToastManager::shared());
    m_window =
        std::make_unique<FloatingWindow>(*m_view, m_native.platform().scheduler, *m_windowSystem);
}

CardUnderTest::~CardUnderTest()
{
    m_building.reset();
    TagIndexService::shared().stop();
    m_window.reset();
    m_view.reset();
    const Platform& platform = m_native.platform();
    platform.background.waitForDone();
    releaseSharedServices();
    platform.bulk.clear();
    platform.bulk.waitForDone();
    platform.database.clear();
    platform.database.waitForDone();
}

void CardUnderTest::makeVault(int folders)
{
    const QDir folder(vault());
    folder.mkpath(QStringLiteral("."));
    for (int number = 0; number < folders; ++number)
        folder.mkdir(nameOfFolder(number));
    const QByteArray text = noteText(noteLength).toUtf8();
    for (int number = 0; number < resultCount; ++number) {
        QFile note(folder.filePath(QStringLiteral("Note %1.md").arg(number)));
        require(note.open(QIODevice::WriteOnly) && note.write(text) == text.size(),
                "the vault can be made");
    }
}

void CardUnderTest::show()
{
    m_window->centre();
    m_window->makeKeyAndOrderFront();
}

void CardUnderTest::takeKeys()
{
    show();
    for (int turn = 0; turn < 500 && !(m_window->isActive() && m_view->isFocused()); ++turn)
        rest(std::chrono::milliseconds(10));
    require(m_window->isActive() && m_view->isFocused(), "the text field has the keyboard");
}

void CardUnderTest::write(const QString& text)
{
    CommandTemplateState& state = m_view->commandTemplateState();
    state.setText(text);
    state.handleTextChange();
    state.setForceTextUpdate(true);
}

void CardUnderTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(m_window.get(), &press);
}

void CardUnderTest::openList()
{
    write(QStringLiteral("/recent $"));
    require(rowsInList() > folderCount, "the list holds all folders");
}

qsizetype CardUnderTest::rowsInList() const
{
    return m_view->commandTemplateState().dropdownItems().size();
}

void CardUnderTest::openPanel()
{
    if (m_results.isEmpty())
        findResults();
    m_view->commandTemplateState().setText(QStringLiteral("/search_notes ") + query);
    deliver(m_results);
    require(m_view->showSearchResults(), "the panel is open");
}

void CardUnderTest::findResults()
{
    timedRun([this] { return TagIndexService::shared().buildIndex(vault()); });
    const auto found = timedTask([] { return ObsidianService::shared().searchNotes(query); });
    require(found.value && found.value->size() == resultCount, "the search finds all notes");
    m_results = *found.value;
}

void CardUnderTest::clear()
{
    write({});
    deliver({});
}

void CardUnderTest::startBuild()
{
    QCoro::connect(TagIndexService::shared().buildIndex(vault()), m_window.get(), [] {});
}

void CardUnderTest::keepBuilding(const QString& vault)
{
    if (!m_building)
        m_building = std::make_unique<QObject>();
    QCoro::connect(TagIndexService::shared().buildIndex(vault), m_building.get(),
                   [this, vault] { keepBuilding(vault); });
}

QChar CardUnderTest::typed(int key)
{
    return key % 7 == 6 ? u'e' : QChar(u'a' + key % 7);
}

QString CardUnderTest::nameOfTemplate(int number)
{
    return QStringLiteral("T%1 %2").arg(typedText()).arg(number);
}

QString CardUnderTest::nameOfFolder(int number)
{
    return QStringLiteral("F%1 %2").arg(typedText()).arg(number);
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

} // namespace jotwell::bench
