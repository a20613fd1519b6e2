#include "Views/Results/SearchResultsView.h"

#include "Views/Results/SearchResultRow.h"

#include <utility>

namespace jotwell {

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
    const NoteSearchResult& result = m_searchResults.at(index.row());
    switch (role) {
    case fileName:
        return result.fileName;
    case snippet:
        return result.snippet.value_or(QString());
    case path:
        return truncatedPath(result.filePath);
    default:
        return {};
    }
}

QHash<int, QByteArray> SearchResultsView::roleNames() const
{
    return {{fileName, "fileName"}, {snippet, "snippet"}, {path, "path"}};
}

void SearchResultsView::setSearchResults(const NoteSearchResults& searchResults)
{
    if (searchResults.isEmpty() && m_searchResults.isEmpty())
        return;
    beginResetModel();
    m_searchResults = searchResults;
    endResetModel();
    emit countTextChanged();
}

void SearchResultsView::setSelectedIndex(int index)
{
    if (std::exchange(m_selectedIndex, index) != index)
        emit selectedIndexChanged();
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
    if (row >= 0 && row < m_searchResults.size())
        emit resultTapped(row);
}

} // namespace jotwell
