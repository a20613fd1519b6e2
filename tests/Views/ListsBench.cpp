#include "Views/ListsBench.h"

#include "Views/Appearance.h"

#include <QDir>
#include <QQuickWindow>

namespace jotwell {

namespace {

std::optional<ArrowDirection> directionOf(const QString& name)
{
    if (name.isEmpty())
        return std::nullopt;
    return name == QStringLiteral("up") ? ArrowDirection::up : ArrowDirection::down;
}

} // namespace

ListsBench::ListsBench(QObject* parent) : ViewBench(parent)
{
    Appearance::ofAllViews().follow(&m_desktop);
}

ListsBench::~ListsBench()
{
    Appearance::ofAllViews().follow(nullptr);
}

void ListsBench::setDark(bool isDark)
{
    m_desktop.set(isDark);
}

void ListsBench::write(const QString& text)
{
    state().setText(text);
    state().handleTextChange();
}

void ListsBench::arrow(const QString& direction)
{
    state().handleArrowKey(*directionOf(direction));
}

void ListsBench::close()
{
    state().closeDropdowns();
    advance(0);
}

void ListsBench::makeFolders(int count)
{
    for (int folder = 0; folder < count; ++folder)
        QDir(vault.path()).mkdir(QStringLiteral("f%1").arg(folder, 3, 10, QChar(u'0')));
}

void ListsBench::addTemplates(int count, int nameLength)
{
    ObsidianTemplates all = settings.obsidianTemplates();
    for (int each = 0; each < count; ++each) {
        ObsidianTemplate added;
        added.id = QUuid::createUuid();
        added.name = QStringLiteral("t%1").arg(each).leftJustified(nameLength, u'x');
        all.append(added);
    }
    settings.setObsidianTemplates(all);
}

void ListsBench::showNotes(const QStringList& paths, const QStringList& snippets)
{
    NoteSearchResults results;
    for (const QString& path : paths) {
        NoteSearchResult result = NoteSearchResult::forPath(path);
        if (const QString snippet = snippets.value(results.size()); !snippet.isEmpty())
            result.snippet = snippet;
        results.append(result);
    }
    floatingWindowView.results()->setSearchResults(results);
}

void ListsBench::selectNote(int index)
{
    floatingWindowView.results()->setSelectedIndex(index);
}

void ListsBench::scrollToNote(const QString& direction)
{
    floatingWindowView.results()->scrollToSelected(directionOf(direction));
}

Qt::CursorShape ListsBench::cursorShapeOver(QQuickItem* item)
{
    return item->window()->cursor().shape();
}

} // namespace jotwell
