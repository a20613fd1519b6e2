#pragma once

#include "Views/Editor/CustomTextEditor.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace jotwell {

/// Drags selected text out of the editor with the mouse, and takes in text that is dropped there.
/// Points are in the coordinates of the text area. Main thread.
class TextDrag : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(jotwell::CustomTextEditor* editor MEMBER m_editor)

public:
    using QObject::QObject;

    /// The mouse was pressed; true if that was on the selection, which may now be dragged away.
    Q_INVOKABLE bool mousePressed(const QPointF& point);
    /// Drags the selection, soon, once the mouse has moved far enough.
    Q_INVOKABLE void mouseMoved(const QPointF& point);
    /// A press on the selection that dragged nothing is a click: the cursor goes there.
    Q_INVOKABLE void mouseReleased(const QPointF& point);
    /// Puts in `text`; a selection of this editor that is being moved goes from its old place.
    /// False if the text can't be taken in now.
    Q_INVOKABLE bool drop(const QPointF& point, const QString& text, Qt::DropAction action);

private:
    [[nodiscard]] bool hasView() const { return m_editor && m_editor->hasView(); }
    [[nodiscard]] bool isOneOfSeveralClicks();
    void dragSelection();
    void removeDragged();
    [[nodiscard]] std::optional<TextRange> takeDragged();
    [[nodiscard]] QString textAt(const TextRange& range);

    QPointer<CustomTextEditor> m_editor;
    QElapsedTimer m_lastPress;
    std::optional<QPointF> m_pressed;   ///< on the selection
    std::optional<TextRange> m_dragged; ///< out of this editor
    QString m_draggedText;
};

} // namespace jotwell
