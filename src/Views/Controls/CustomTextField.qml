import QtQuick
import Jotwell

// A titled field for one line of text, which may be a secret.
LineField {
    property bool isSecure: false

    echoMode: isSecure ? TextInput.Password : TextInput.Normal
}
