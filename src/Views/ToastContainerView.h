#pragma once

#include "Models/Toast.h"
#include "Services/ToastManager.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace jotwell {

/// The slot of the toast manager as the views show it. It keeps the last toast's words and looks
/// while that one slides out. Main thread.
class ToastContainerView : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToastContainerState)
    QML_UNCREATABLE("shows a toast manager")

    Q_PROPERTY(bool isShown READ isShown NOTIFY slotChanged)
    Q_PROPERTY(QString message READ message NOTIFY slotChanged)
    Q_PROPERTY(QString icon READ icon NOTIFY slotChanged)
    Q_PROPERTY(QString iconColor READ iconColor NOTIFY slotChanged)
    Q_PROPERTY(QString color READ color NOTIFY slotChanged)

public:
    explicit ToastContainerView(ToastManager& toastManager, QObject* parent = nullptr);

    [[nodiscard]] bool isShown() const { return m_isShown; }
    [[nodiscard]] const QString& message() const { return m_toast.message; }
    /// Names of a symbol and of system colours.
    [[nodiscard]] QString icon() const { return jotwell::icon(m_toast.type); }
    [[nodiscard]] QString iconColor() const { return jotwell::iconColor(m_toast.type); }
    [[nodiscard]] QString color() const { return jotwell::color(m_toast.type); }

    Q_INVOKABLE void dismiss();

signals:
    /// The slot was filled or emptied, which is to be shown at once or by a movement.
    void slotChanged(bool animated);

private:
    void update(ToastManager::Transition transition);

    ToastManager& m_toastManager;
    Toast m_toast;
    bool m_isShown = false;
};

} // namespace jotwell
