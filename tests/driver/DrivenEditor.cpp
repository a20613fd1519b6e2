#include "driver/DrivenEditor.h"

#include "Fakes/DocumentSelection.h"
#include "driver/InputJson.h"

#include <QJsonObject>

namespace jotwell {

namespace {

QJsonObject callOf(const QString& name)
{
    return {{QStringLiteral("name"), name}};
}

} // namespace

DrivenEditor::DrivenEditor(const QString& text, const TokenNames& names, Scheduler& scheduler)
    : m_values{.text = text}, m_editor(bindings(names), scheduler)
{
    auto selection = std::make_unique<DocumentSelection>(m_document);
    m_selection = selection.get();
    m_editor.makeView(m_document, std::move(selection));
}

void DrivenEditor::update(const Values& values)
{
    m_values = values;
    m_editor.updateView();
}

void DrivenEditor::type(const QString& text)
{
    m_selection->type(text);
}

CustomTextEditorBindings DrivenEditor::bindings(const TokenNames& names)
{
    CustomTextEditorBindings its;
    its.text = [this] { return m_values.text; };
    its.setText = [this](const QString& text) { m_values.text = text; };
    its.isFocused = [this] { return m_values.isFocused; };
    its.forceUpdate = [this] { return m_values.forceUpdate; };
    its.setForceUpdate = [this](bool force) { m_values.forceUpdate = force; };
    its.tokenNames = names;
    its.onTextChange = [this] { record(QStringLiteral("onTextChange")); };
    its.onCommandEnter = [this] { record(QStringLiteral("onCommandEnter")); };
    its.onArrowKey = [this](ArrowDirection direction) {
        QJsonObject call = callOf(QStringLiteral("onArrowKey"));
        call.insert(QStringLiteral("direction"), toJson(direction));
        m_calls.append(call);
        return m_answers.onArrowKey;
    };
    its.onEnterKey = [this] {
        record(QStringLiteral("onEnterKey"));
        return m_answers.onEnterKey;
    };
    // A script can set and unset it at any time, the bindings of an editor don't change.
    its.onTabKey = [this] {
        if (m_answers.onTabKey)
            record(QStringLiteral("onTabKey"));
        return m_answers.onTabKey.value_or(false);
    };
    its.onCommandClick = recordedClick(QStringLiteral("onCommandClick"));
    its.onTemplateClick = recordedClick(QStringLiteral("onTemplateClick"));
    its.onHashtagClick = recordedClick(QStringLiteral("onHashtagClick"));
    return its;
}

void DrivenEditor::record(const QString& name)
{
    m_calls.append(callOf(name));
}

RoundedBackgroundTextView::OnClick DrivenEditor::recordedClick(const QString& name)
{
    return [this, name](const TextRange& range, const QString& text) {
        QJsonObject call = callOf(name);
        call.insert(QStringLiteral("range"), toJson(range));
        call.insert(QStringLiteral("text"), text);
        m_calls.append(call);
    };
}

} // namespace jotwell
