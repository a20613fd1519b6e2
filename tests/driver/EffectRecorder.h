#pragma once

#include "Models/NoteSearchResult.h"
#include "Models/Toast.h"
#include "Support/Logging.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QMutex>
#include <QStringList>

#include <optional>

namespace jotwell {

/// Remembers what left the process or reached the user, in the order in which it happened. Any
/// thread.
class EffectRecorder {
public:
    void recordOpenUrl(const QString& url);
    void recordToast(const Toast& toast);
    void recordLog(const LogRecord& record);
    void recordSearchResults(const NoteSearchResults& notes);
    /// The capture window asked to be shown or hidden.
    void recordToggle();
    /// The global hotkey's handler was called.
    void recordHotkey();
    /// The status item's menu is to be built anew.
    void recordMenuRefresh();
    /// `object` and `userInfo` are null where there is none.
    void recordNotification(const QString& name, const QJsonValue& object,
                            const QJsonValue& userInfo);

    /// Gives what has been remembered, and forgets it; of these kinds alone if any are named.
    [[nodiscard]] QJsonArray take(const std::optional<QStringList>& kinds);

private:
    void record(const QString& kind, QJsonObject effect);

    QMutex m_mutex;
    QJsonArray m_effects; ///< under the mutex
};

} // namespace jotwell
