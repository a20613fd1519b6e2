import QtQuick
import Jotwell

// A checkbox that shows what its click has led to, which may be nothing.
CustomCheckbox {
    id: checkbox

    required property bool value

    isChecked: value
    onAction: isChecked = Qt.binding(() => checkbox.value)
}
