#pragma once

#include "Models/NoteSearchResult.h"
#include "Views/Results/KeyMonitorView.h"
#include "Views/ScrollTarget.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>

namespace jotwell {

class Scheduler;

/// What the panel of found notes shows: a row for each, which of them is selected, how many there
/// are, and which keys of its hints are held. It decides nothing: the capture window's view does.
/// Main thread; owned by that view.
class SearchResultsView : public QAbstractListModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(SearchResultsState)
    QML_UNCREATABLE("belongs to the state of the capture window")

    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY selectedIndexChanged)
    Q_PROPERTY(QString countText READ countText NOTIFY countTextChanged)
    Q_PROPERTY(QStringList pressedKeys READ pressedKeys NOTIFY pressedKeysChanged)

public:
    /// `snippet` is empty where `path` is to be shown, which is shortened; `detail` is what is read
    /// out of them. Colours by their names, as `SearchResultRow` has them.
    enum Role {
        fileName = Qt::UserRole,
        snippet,
        path,
        detail,
        isSelected,
        isHovered,
        iconColor,
        backgroundColor,
        highlightColor
    };

    explicit SearchResultsView(Scheduler& scheduler, QObject* parent = nullptr);
    ~SearchResultsView() override;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    [[nodiscard]] const NoteSearchResults& searchResults() const { return m_searchResults; }
    void setSearchResults(const NoteSearchResults& searchResults);

    /// -1, or any row that isn't there, for none.
    [[nodiscard]] int selectedIndex() const { return m_selectedIndex; }
    void setSelectedIndex(int index);

    /// "1 note", "2 notes".
    [[nodiscard]] static QString countText(qsizetype count);
    [[nodiscard]] QString countText() const { return countText(m_searchResults.size()); }

    /// Nothing for a row that isn't there.
    [[nodiscard]] static std::optional<ScrollTarget>
    scrollTarget(qsizetype count, qsizetype selectedIndex, std::optional<ArrowDirection> direction);
    /// Has the list show its selected row; the direction in which an arrow key has moved it.
    void scrollToSelected(std::optional<ArrowDirection> direction);

    /// While the panel is on show it watches the keyboard.
    void setShown(bool isShown);
    /// Names as `KeyMonitorView` has them.
    [[nodiscard]] QStringList pressedKeys() const;

    /// The user has clicked that row.
    Q_INVOKABLE void tap(int row);
    /// The pointer has come to that row, or has left it.
    Q_INVOKABLE void hover(int row, bool isHovered);
    /// The list has come on the screen: centres what is selected.
    Q_INVOKABLE void appear() { scrollToSelected(std::nullopt); }

signals:
    void selectedIndexChanged();
    void countTextChanged();
    void pressedKeysChanged();
    void scrollRequested(int index, jotwell::ScrollAnchor::Anchor anchor);
    void resultTapped(int row);

private:
    [[nodiscard]] bool isRow(int row) const { return row >= 0 && row < m_searchResults.size(); }
    void setHoveredIndex(int index);
    void emitChanged(int row, const QList<int>& roles);

    Scheduler& m_scheduler;
    NoteSearchResults m_searchResults;
    int m_selectedIndex = -1;
    int m_hoveredIndex = -1;
    std::unique_ptr<KeyMonitorView> m_keyMonitor;
};

} // namespace jotwell
