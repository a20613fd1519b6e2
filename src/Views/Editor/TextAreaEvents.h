#pragma once

#include "Views/Editor/CustomTextEditor.h"

#include <QColor>
#include <QPointF>
#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace jotwell {

/// Joins a QML text area to the editor: the area's document becomes the editor's view, and what the
/// keyboard and the mouse do in the area goes to the editor first. Main thread.
class TextAreaEvents : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(jotwell::CustomTextEditor* editor MEMBER m_editor)
    Q_PROPERTY(QColor commandColor MEMBER m_commandColor NOTIFY colorsChanged)
    Q_PROPERTY(QColor parameterColor MEMBER m_parameterColor NOTIFY colorsChanged)
    Q_PROPERTY(bool isOverChip READ isOverChip NOTIFY isOverChipChanged)

public:
    explicit TextAreaEvents(QObject* parent = nullptr);

    /// The pointer is over a chip.
    [[nodiscard]] bool isOverChip() const { return m_isOverChip; }

    /// `area` is complete; it has to be a text area.
    Q_INVOKABLE void attach(QQuickItem* area);
    // True if the event is used up here.
    Q_INVOKABLE bool keyPressed(int key, int modifiers, bool isRepeat);
    Q_INVOKABLE bool mousePressed(const QPointF& point);
    Q_INVOKABLE void mouseMoved(const QPointF& point);
    Q_INVOKABLE void mouseExited();
    Q_INVOKABLE void editingEnded();

signals:
    void colorsChanged();
    void isOverChipChanged();

private:
    void takeOverColors();
    void setIsOverChip(bool isOver);
    [[nodiscard]] bool hasView() const { return m_editor && m_editor->hasView(); }

    QPointer<CustomTextEditor> m_editor;
    QColor m_commandColor;
    QColor m_parameterColor;
    bool m_isOverChip = false;
};

} // namespace jotwell
