#include "Views/Editor/ChipBackground.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>

namespace jotwell {

namespace {

constexpr qreal cornerRadius = 4;
constexpr float alpha = 0.12F;
constexpr float hoveredAlpha = 0.2F;

} // namespace

ChipBackground::ChipBackground(QQuickItem* parent) : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    setOpacity(0);
    for (const auto signal : {&QQuickItem::xChanged, &QQuickItem::yChanged,
                              &QQuickItem::widthChanged, &QQuickItem::heightChanged})
        connect(this, signal, this, &QQuickItem::polish);
    connect(this, &ChipBackground::colorsChanged, this, [this] { update(); });
}

void ChipBackground::setEditor(CustomTextEditor* editor)
{
    if (m_editor == editor)
        return;
    m_editor = editor;
    if (m_editor) {
        connect(m_editor, &CustomTextEditor::viewMade, this, &ChipBackground::watchView);
        watchView();
    }
    emit editorChanged();
}

void ChipBackground::watchView()
{
    if (!m_editor->hasView())
        return;
    RoundedBackgroundTextView& view = m_editor->view();
    connect(&view, &RoundedBackgroundTextView::needsDisplay, this, &QQuickItem::polish);
    const QAbstractTextDocumentLayout* layout = view.document().document()->documentLayout();
    connect(layout, &QAbstractTextDocumentLayout::documentSizeChanged, this, &QQuickItem::polish);
    connect(layout, &QAbstractTextDocumentLayout::update, this, &QQuickItem::polish);
    polish();
}

void ChipBackground::updatePolish()
{
    const bool hasView = m_editor && m_editor->hasView();
    auto chips =
        hasView ? m_editor->view().chipRectangles(QRectF(position(), size())) : decltype(m_chips)();
    if (chips == m_chips && (chips.empty() || m_origin == position()))
        return;
    m_origin = position();
    m_chips = std::move(chips);
    setOpacity(m_chips.empty() ? 0 : 1); // what isn't to be seen isn't drawn at all
    update();
}

void ChipBackground::paint(QPainter* painter)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->translate(-m_origin);
    for (const auto& chip : m_chips) {
        QColor color = chip.isCommand ? m_commandColor : m_parameterColor;
        color.setAlphaF(chip.isHovered ? hoveredAlpha : alpha);
        painter->setBrush(color);
        painter->drawRoundedRect(chip.rectangle, cornerRadius, cornerRadius);
    }
}

} // namespace jotwell
