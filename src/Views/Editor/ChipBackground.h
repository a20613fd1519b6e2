#pragma once

#include "Views/Editor/CustomTextEditor.h"

#include <QColor>
#include <QPointer>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace jotwell {

/// Fills the chips of the editor that can be seen: once under the text and once over it. Covers the
/// part of the text area that shows, and moves with it.
class ChipBackground : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(jotwell::CustomTextEditor* editor READ editor WRITE setEditor NOTIFY editorChanged)
    Q_PROPERTY(QColor commandColor MEMBER m_commandColor NOTIFY colorsChanged)
    Q_PROPERTY(QColor parameterColor MEMBER m_parameterColor NOTIFY colorsChanged)

public:
    explicit ChipBackground(QQuickItem* parent = nullptr);

    [[nodiscard]] CustomTextEditor* editor() const { return m_editor; }
    void setEditor(CustomTextEditor* editor);

    void paint(QPainter* painter) override;

signals:
    void editorChanged();
    void colorsChanged();

protected:
    void updatePolish() override;

private:
    void watchView();

    QPointer<CustomTextEditor> m_editor;
    QColor m_commandColor;
    QColor m_parameterColor;
    QPointF m_origin;                                              ///< in the text area
    std::vector<RoundedBackgroundTextView::ChipRectangle> m_chips; ///< in its coordinates
};

} // namespace jotwell
