#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace jotwell {

/// Tells a screen reader where the user is when arrow keys work a list while the keyboard stays in
/// the text field. Costs nothing where none listens. Main thread.
class AccessibleFocus : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// The user has come to `item`, which doesn't get the keyboard; nullptr is passed over.
    Q_INVOKABLE static void moveTo(QQuickItem* item);
    /// The user is back where the keyboard is in the window of `item`.
    Q_INVOKABLE static void moveBackFrom(QQuickItem* item);
};

} // namespace jotwell
