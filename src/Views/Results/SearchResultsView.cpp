#include "Views/Results/SearchResultsView.h"

#include "Views/Results/SearchResultRow.h"
#include "Views/Results/SnippetParts.h"

#include <utility>

namespace jotwell {

namespace {

QString detailOf(const NoteSearchResult& result)
{
    const QString snippet = result.snippet.value_or(QString());
    return snippet.isEmpty() ? truncatedPath(result.filePath) : plainText(parseSnippet(snippet));
}

} // namespace

SearchResultsView::SearchResultsView(Scheduler& scheduler, QObject* parent)
    : QAbstractListModel(parent), m_scheduler(scheduler)
{
}

SearchResultsView::~SearchResultsView() = default;

int SearchResultsView::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_searchResults.size());
}

QVariant SearchResultsView::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const int row = index.row();
    const NoteSearchResult& result = m_searchResults.at(row);
    switch (role) {
    case fileName:
        return result.fileName;
    case snippet:
        return result.snippet.value_or(QString());
    case path:
        return truncatedPath(result.filePath);
    case detail:
        return detailOf(result);
    case isSelected:
        return row == m_selectedIndex;
    case isHovered:
        return row == m_hoveredIndex;
    case iconColor:
        return SearchResultRow::iconColor(row == m_selectedIndex);
    case backgroundColor:
        return SearchResultRow::backgroundColor(row == m_selectedIndex, row == m_hoveredIndex);
    case highlightColor:
        return SearchResultRow::highlightColor(row == m_selectedIndex);
    default:
        return {};
    }
}

QHash<int, QByteArray> SearchResultsView::roleNames() const
{
    return {{fileName, "fileName"},
            {snippet, "snippet"},
            {path, "path"},
            {detail, "detail"},
            {isSelected, "isSelected"},
            {isHovered, "isHovered"},
            {iconColor, "iconColor"},
            {backgroundColor, "backgroundColor"},
            {highlightColor, "highlightColor"}};
}

void SearchResultsView::setSearchResults(const NoteSearchResults& searchResults)
{
    if (searchResults.isEmpty() && m_searchResults.isEmpty())
        return;
    beginResetModel();
    m_searchResults = searchResults;
    m_hoveredIndex = -1;
    endResetModel();
    emit countTextChanged();
}

void SearchResultsView::setSelectedIndex(int index)
{
    const int before = std::exchange(m_selectedIndex, index);
    if (before == index)
        return;
    for (const int row : {before, index})
        emitChanged(row, {isSelected, iconColor, backgroundColor, highlightColor});
    emit selectedIndexChanged();
}

void SearchResultsView::hover(int row, bool isHovered)
{
    if (isHovered)
        setHoveredIndex(row);
    else if (row == m_hoveredIndex)
        setHoveredIndex(-1);
}

void SearchResultsView::setHoveredIndex(int index)
{
    const int before = std::exchange(m_hoveredIndex, index);
    if (before == index)
        return;
    for (const int row : {before, index})
        emitChanged(row, {isHovered, backgroundColor});
}

void SearchResultsView::emitChanged(int row, const QList<int>& roles)
{
    if (isRow(row))
        emit dataChanged(index(row), index(row), roles);
}

QString SearchResultsView::countText(qsizetype count)
{
    return QStringLiteral("%1 note%2").arg(count).arg(count == 1 ? QString() : QStringLiteral("s"));
}

std::optional<ScrollTarget> SearchResultsView::scrollTarget(qsizetype count,
                                                            qsizetype selectedIndex,
                                                            std::optional<ArrowDirection> direction)
{
    if (selectedIndex < 0 || selectedIndex >= count)
        return std::nullopt;
    return ScrollTarget{static_cast<int>(selectedIndex), ScrollAnchor::of(direction)};
}

void SearchResultsView::scrollToSelected(std::optional<ArrowDirection> direction)
{
    if (const auto target = scrollTarget(m_searchResults.size(), m_selectedIndex, direction))
        emit scrollRequested(target->index, target->anchor);
}

void SearchResultsView::setShown(bool isShown)
{
    if (isShown == (m_keyMonitor != nullptr))
        return;
    m_keyMonitor = isShown ? std::make_unique<KeyMonitorView>(m_scheduler) : nullptr;
    if (m_keyMonitor)
        connect(m_keyMonitor.get(), &KeyMonitorView::pressedKeysChanged, this,
                &SearchResultsView::pressedKeysChanged);
    emit pressedKeysChanged();
}

QStringList SearchResultsView::pressedKeys() const
{
    return m_keyMonitor ? m_keyMonitor->pressedKeys().values() : QStringList();
}

void SearchResultsView::tap(int row)
{
    if (isRow(row))
        emit resultTapped(row);
}

} // namespace jotwell
