#include "Views/Editor/EditorBench.h"

namespace jotwell {

EditorBench::EditorBench()
{
    bindValues();
    bindKeys();
    bindings.onCommandClick = noted(QStringLiteral("onCommandClick"));
    bindings.onTemplateClick = noted(QStringLiteral("onTemplateClick"));
    bindings.onHashtagClick = noted(QStringLiteral("onHashtagClick"));
}

void EditorBench::make(const QString& shown)
{
    auto selection = std::make_unique<DocumentSelection>(document);
    m_selection = selection.get();
    makeIn(document, std::move(selection), shown);
}

void EditorBench::makeIn(QTextDocument& other, std::unique_ptr<TextSelection> selection,
                         const QString& shown)
{
    text = shown;
    m_editor = std::make_unique<CustomTextEditor>(bindings, scheduler);
    m_editor->makeView(other, std::move(selection));
}

void EditorBench::makeStyled(const QString& shown)
{
    make();
    update(shown);
    nextTurn();
}

void EditorBench::update(const QString& value, bool force)
{
    text = value;
    forceUpdate = force;
    m_editor->updateView();
}

void EditorBench::bindValues()
{
    bindings.text = [this] { return text; };
    bindings.setText = [this](const QString& value) { text = value; };
    bindings.isFocused = [this] { return isFocused; };
    bindings.forceUpdate = [this] { return forceUpdate; };
    bindings.setForceUpdate = [this](bool force) {
        calls.append(force ? QStringLiteral("force") : QStringLiteral("unforce"));
        forceUpdate = force;
    };
    bindings.tokenNames = {[this] { return templates; }, [this] { return folders; }};
    // What the text is by then tells of the order.
    bindings.onTextChange = [this] { calls.append(QStringLiteral("onTextChange ") + text); };
}

void EditorBench::bindKeys()
{
    bindings.onCommandEnter = [this] { calls.append(QStringLiteral("onCommandEnter")); };
    bindings.onArrowKey = [this](ArrowDirection direction) {
        calls.append(direction == ArrowDirection::up ? QStringLiteral("onArrowKey up")
                                                     : QStringLiteral("onArrowKey down"));
        return usesKeys;
    };
    bindings.onEnterKey = [this] {
        calls.append(QStringLiteral("onEnterKey"));
        return usesKeys;
    };
    bindings.onTabKey = [this] {
        calls.append(QStringLiteral("onTabKey"));
        return usesKeys;
    };
}

RoundedBackgroundTextView::OnClick EditorBench::noted(const QString& name)
{
    return [this, name](const TextRange& range, const QString& token) {
        calls.append(
            QStringLiteral("%1 %2 %3 %4")
                .arg(name, QString::number(range.location), QString::number(range.length), token));
    };
}

} // namespace jotwell
