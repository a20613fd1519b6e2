import QtQuick

// The sizes of a button with a symbol, and the measures of `value`.
QtObject {
    enum Value { Small, Regular, Large }

    required property int value

    readonly property int buttonSize: [24, 32, 48][value]
    readonly property int cornerRadius: [4, 6, 8][value]
}
