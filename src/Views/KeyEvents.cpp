#include "Views/KeyEvents.h"

#include "Platform/WindowSystem.h"

#include <QKeyEvent>

namespace jotwell {

namespace {

constexpr int escape = 53;
constexpr int leftOption = 58;
constexpr int rightOption = 61;
constexpr int nowhere = -1;

// The bit that goes up or down with a modifier's own key; none for other keys.
quint64 ownFlag(int key)
{
    switch (key) {
    case Qt::Key_Shift:
        return ModifierBit::shift;
    case Qt::Key_Control:
        return ModifierBit::command;
    case Qt::Key_Alt:
        return ModifierBit::option;
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
        return ModifierBit::control;
    default:
        return 0;
    }
}

// With Shift held, X11 calls the Alt key Meta, as it does with the Super key always.
bool isShiftedAlt(const QKeyEvent& event, const WindowSystem& windowSystem)
{
    if (event.key() != Qt::Key_Meta || !event.modifiers().testFlag(Qt::ShiftModifier))
        return false;
    const auto place = windowSystem.keyCode(event);
    return place == leftOption || place == rightOption;
}

bool isLock(int key)
{
    return key == Qt::Key_CapsLock || key == Qt::Key_NumLock || key == Qt::Key_ScrollLock ||
           key == Qt::Key_AltGr;
}

int keyCodeOf(const QKeyEvent& event, const WindowSystem& windowSystem)
{
    if (event.key() == Qt::Key_Escape)
        return escape;
    const int place = windowSystem.keyCode(event).value_or(nowhere);
    return place == escape ? nowhere : place;
}

} // namespace

quint64 modifierFlags(Qt::KeyboardModifiers modifiers)
{
    quint64 flags = 0;
    if (modifiers.testFlag(Qt::ShiftModifier))
        flags |= ModifierBit::shift;
    if (modifiers.testFlag(Qt::MetaModifier))
        flags |= ModifierBit::control;
    if (modifiers.testFlag(Qt::AltModifier))
        flags |= ModifierBit::option;
    // With AltGr a character of the third level is being typed.
    if (modifiers.testFlag(Qt::ControlModifier) && !modifiers.testFlag(Qt::GroupSwitchModifier))
        flags |= ModifierBit::command;
    return flags;
}

// X11 tells of a modifier's own key with the modifiers of the moment before.
KeyEvent keyEventOf(const QKeyEvent& event, const WindowSystem& windowSystem)
{
    const quint64 flags = modifierFlags(event.modifiers());
    const bool isDown = event.type() == QEvent::KeyPress;
    if (isShiftedAlt(event, windowSystem)) { // of its wrong name, Qt adds the modifier
        const quint64 others = flags & ~(ModifierBit::control | ModifierBit::option);
        return {KeyEvent::flagsChanged, nowhere, isDown ? others | ModifierBit::option : others};
    }
    if (const quint64 own = ownFlag(event.key()))
        return {KeyEvent::flagsChanged, nowhere, isDown ? flags | own : flags & ~own};
    if (isLock(event.key()))
        return {KeyEvent::flagsChanged, nowhere, flags};
    return {KeyEvent::keyDown, keyCodeOf(event, windowSystem), flags};
}

} // namespace jotwell
