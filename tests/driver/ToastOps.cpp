#include "driver/Operations.h"

#include "Services/ToastManager.h"
#include "driver/Session.h"

namespace jotwell {

namespace {

QUuid show(ToastManager& toasts, const QString& message, ToastType type, double duration)
{
    const Toast toast = Toast::make(type, message, Toast::Seconds(duration));
    toasts.show(toast);
    return toast.id;
}

// Without a duration the manager's own default for the kind applies.
void addShowOps(Operations& ops, Session& session)
{
    using Seconds = std::optional<double>;
    ops.add(u"ToastManager.showSuccess", {u"message", u"duration"},
            [&session](const QString& message, Seconds given) {
                given ? session.toasts().showSuccess(message, Toast::Seconds(*given))
                      : session.toasts().showSuccess(message);
            });
    ops.add(u"ToastManager.showWarning", {u"message", u"duration"},
            [&session](const QString& message, Seconds given) {
                given ? session.toasts().showWarning(message, Toast::Seconds(*given))
                      : session.toasts().showWarning(message);
            });
    ops.add(u"ToastManager.showError", {u"message", u"duration"},
            [&session](const QString& message, Seconds given) {
                given ? session.toasts().showError(message, Toast::Seconds(*given))
                      : session.toasts().showError(message);
            });
}

} // namespace

void addToastOps(Operations& ops, Session& session)
{
    addShowOps(ops, session);
    ops.add(u"ToastManager.show", {u"message", u"type", u"duration"},
            [&session](const QString& message, ToastType type, double duration) {
                return show(session.toasts(), message, type, duration);
            });
    ops.add(u"ToastManager.showObsidianError", {u"message"},
            [&session](const QString& message) { session.toasts().showObsidianError(message); });
    ops.add(u"ToastManager.showFolderNotFound", {u"path"},
            [&session](const QString& path) { session.toasts().showFolderNotFound(path); });
    ops.add(u"ToastManager.showObsidianSuccess", {},
            [&session] { session.toasts().showObsidianSuccess(); });
    ops.add(u"ToastManager.showSettingsRequired", {},
            [&session] { session.toasts().showSettingsRequired(); });
    ops.add(u"ToastManager.dismiss", {}, [&session] { session.toasts().dismiss(); });
    ops.add(u"ToastManager.currentToast", {},
            [&session] { return session.toasts().currentToast(); });
}

} // namespace jotwell
