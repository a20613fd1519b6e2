#pragma once

#include "Models/ArrowDirection.h"
#include "Support/TextUnits.h"
#include "Views/Editor/ReadyNames.h"

#include <QString>

#include <functional>

namespace jotwell {

/// What the editor is bound to: where its values live, and whom it tells. The first group has to be
/// set; a callback that isn't counts as one that has no use for the event.
struct CustomTextEditorBindings {
    std::function<QString()> text;
    std::function<void(const QString&)> setText;
    std::function<bool()> isFocused; ///< asks for the keyboard
    std::function<bool()> forceUpdate;
    std::function<void(bool)> setForceUpdate;
    TokenNames tokenNames;

    QString placeholder;
    std::function<void()> onTextChange;   ///< after each edit by the user
    std::function<void()> onCommandEnter; ///< Ctrl+Return
    // True if the key was used.
    std::function<bool(ArrowDirection)> onArrowKey;
    std::function<bool()> onEnterKey;
    std::function<bool()> onTabKey;
    // A click on a chip: its range in UTF-16 units and its text.
    std::function<void(const TextRange&, const QString&)> onCommandClick;
    std::function<void(const TextRange&, const QString&)> onTemplateClick;
    std::function<void(const TextRange&, const QString&)> onHashtagClick;
};

} // namespace jotwell
