import QtQuick

// The sizes of a key cap, and the measures of `value`.
QtObject {
    enum Value { Small, Regular, Large }

    required property int value

    readonly property int fontSize: [10, 11, 13][value]
    readonly property int horizontalPadding: [6, 8, 10][value]
    readonly property int verticalPadding: [2, 3, 4][value]
}
