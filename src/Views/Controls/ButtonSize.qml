import QtQuick

// The sizes of a button with a title, and the measures of `value`.
QtObject {
    enum Value { Small, Regular }

    required property int value

    readonly property int fontSize: [12, 14][value]
    readonly property int horizontalPadding: [8, 20][value]
    readonly property int verticalPadding: [4, 10][value]
    readonly property int cornerRadius: [4, 8][value]
}
