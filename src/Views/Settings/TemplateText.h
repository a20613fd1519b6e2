#pragma once

#include "Views/Editor/EditorDocument.h"

#include <QQuickTextDocument>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace jotwell {

/// Keeps a text area in step with a text that is changed from both sides. What the user hasn't
/// touched stays as it was written, line ends and all, although a text area shows some of it
/// otherwise; an equal text leaves the cursor alone; and a composition is never interrupted. Main
/// thread.
class TemplateText : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QQuickTextDocument* document READ document WRITE setDocument NOTIFY documentChanged)
    Q_PROPERTY(QString owner READ owner WRITE setOwner NOTIFY ownerChanged)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(bool isComposing READ isComposing NOTIFY isComposingChanged)

public:
    using QObject::QObject;

    /// That of the text area; set once.
    [[nodiscard]] QQuickTextDocument* document() const { return m_document; }
    void setDocument(QQuickTextDocument* document);
    /// Whose text it is: nobody can undo back into the text of another one.
    [[nodiscard]] const QString& owner() const { return m_owner; }
    void setOwner(const QString& owner);
    [[nodiscard]] const QString& text() const { return m_text; }
    void setText(const QString& text);
    [[nodiscard]] bool isComposing() const { return m_isComposing; }

signals:
    void documentChanged();
    void ownerChanged();
    void textChanged();
    void isComposingChanged();
    /// By the user; `text` is still the one before.
    void edited(const QString& newText);

private:
    void show();
    void noteComposition();

    QQuickTextDocument* m_document = nullptr;
    std::unique_ptr<EditorDocument> m_editor;
    QString m_owner;
    QString m_text;
    bool m_isOfAnother = false; ///< what is shown
    bool m_isComposing = false;
};

} // namespace jotwell
