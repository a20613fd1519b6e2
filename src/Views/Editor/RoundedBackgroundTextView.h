#pragma once

#include "Support/TextUnits.h"
#include "Views/Editor/EditorDocument.h"
#include "Views/Editor/EditorStyles.h"
#include "Views/Editor/TokenHighlighter.h"

#include <QObject>
#include <QRectF>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace jotwell {

class TextSelection;

/// The text view of the editor: its text and selection, and the chips in it, which it measures,
/// finds under the pointer and tells of clicks on. Ranges and indexes are in UTF-16 units of the
/// text, points and rectangles in the coordinates of the view. Main thread.
class RoundedBackgroundTextView : public QObject {
    Q_OBJECT

public:
    /// Called with a chip's range and its text.
    using OnClick = std::function<void(const TextRange&, const QString&)>;

    struct ChipRectangle {
        QRectF rectangle;
        bool isCommand = false; ///< or a template
        bool isHovered = false;

        bool operator==(const ChipRectangle&) const = default;
    };

    /// Blank space around the text, in pixels.
    static constexpr qreal textContainerInset = 5;

    RoundedBackgroundTextView(QTextDocument& document, std::unique_ptr<TextSelection> selection);
    ~RoundedBackgroundTextView() override;

    [[nodiscard]] EditorDocument& document() { return m_document; }
    [[nodiscard]] EditorStyles& styles() { return m_styles; }

    [[nodiscard]] const QString& string() const { return m_document.string(); }
    [[nodiscard]] TextRange selectedRange() const;
    void setSelectedRange(const TextRange& range);
    /// As if the user had pressed Return.
    void insertNewline();
    /// As an edit by the user, in one step: puts `text` in at an index and selects it; what stands
    /// in `removed`, which is to lie elsewhere, goes.
    void insertText(const QString& text, qsizetype index, const std::optional<TextRange>& removed);
    [[nodiscard]] bool isFirstResponder() const;
    void makeFirstResponder();

    [[nodiscard]] const std::vector<TextRange>& commandRanges() const { return m_ranges.commands; }
    [[nodiscard]] const std::vector<TextRange>& templateRanges() const
    {
        return m_ranges.templates;
    }
    [[nodiscard]] const std::vector<TextRange>& hashtagRanges() const { return m_ranges.hashtags; }
    void updateCommandRanges(std::vector<TextRange> ranges);
    void updateTemplateRanges(std::vector<TextRange> ranges);
    void updateHashtagRanges(std::vector<TextRange> ranges);

    void setOnCommandClick(OnClick action) { m_onCommandClick = std::move(action); }
    void setOnTemplateClick(OnClick action) { m_onTemplateClick = std::move(action); }
    void setOnHashtagClick(OnClick action) { m_onHashtagClick = std::move(action); }

    /// The place between two characters that is nearest to the point.
    [[nodiscard]] qsizetype characterIndexForInsertion(const QPointF& point) const;
    /// The mouse was pressed nearest to that place; true if a chip took the click.
    bool mouseDown(qsizetype index);
    // True if the view is to be drawn anew.
    bool mouseMoved(qsizetype index);
    bool mouseExited();
    [[nodiscard]] std::optional<TextRange> hoveredRange() const { return m_hoveredRange; }

    /// The chips that are to be filled and reach into `visible`.
    [[nodiscard]] std::vector<ChipRectangle> chipRectangles(const QRectF& visible) const;
    /// Whether the pointer is over the rectangle of any chip, tags included.
    [[nodiscard]] bool isOverChip(const QPointF& point) const;

signals:
    /// The view is to be drawn anew.
    void needsDisplay();

private:
    [[nodiscard]] std::optional<TextRange> chipAt(qsizetype index) const;
    bool setHoveredRange(std::optional<TextRange> range);

    EditorDocument m_document;
    EditorStyles m_styles;
    std::unique_ptr<TextSelection> m_selection;
    TokenRanges m_ranges;
    OnClick m_onCommandClick;
    OnClick m_onTemplateClick;
    OnClick m_onHashtagClick;
    std::optional<TextRange> m_hoveredRange;
};

} // namespace jotwell
