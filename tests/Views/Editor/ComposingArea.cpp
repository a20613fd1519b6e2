#include "Views/Editor/ComposingArea.h"

#include "Views/Editor/TextAreaSelection.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQuickTextDocument>
#include <QTextCharFormat>

namespace jotwell {

ComposingArea::ComposingArea()
{
    QQmlComponent component(&m_engine);
    component.setData("import QtQuick\nTextEdit { textFormat: TextEdit.PlainText }", {});
    m_area.reset(qobject_cast<QQuickItem*>(component.create()));
}

QTextDocument& ComposingArea::document()
{
    return *m_area->property("textDocument").value<QQuickTextDocument*>()->textDocument();
}

std::unique_ptr<TextSelection> ComposingArea::selection()
{
    return std::make_unique<TextAreaSelection>(*m_area);
}

void ComposingArea::compose(const QString& preedit, const QString& commit)
{
    QTextCharFormat underlined;
    underlined.setFontUnderline(true);
    QList<QInputMethodEvent::Attribute> looks;
    if (!preedit.isEmpty())
        looks.append({QInputMethodEvent::TextFormat, 0, static_cast<int>(preedit.size()),
                      QVariant(underlined)});
    QInputMethodEvent step(preedit, looks);
    step.setCommitString(commit);
    QCoreApplication::sendEvent(m_area.get(), &step);
}

} // namespace jotwell
