#pragma once

#include "driver/Operation.h"

#include <map>

namespace jotwell {

class Session;

/// All ops by name.
class Operations {
public:
    template <typename Function>
    void add(QStringView name, typename SignatureOf<Function>::Names arguments, Function function)
    {
        add(name, operation(arguments, std::move(function)));
    }
    void add(QStringView name, Operation run);

    /// An empty one if there is no op of that name.
    [[nodiscard]] Operation find(const QString& name) const;
    [[nodiscard]] QStringList names() const;

private:
    std::map<QString, Operation> m_byName;
};

// The ops that are offered, by area. Each only converts, and calls the operation of its name; the
// session must outlive them.

void addSessionOps(Operations& ops, Session& session);
void addDefaultsOps(Operations& ops, Session& session);
void addSettingsOps(Operations& ops);
void addPanelOps(Operations& ops, Session& session);
void addRecordOps(Operations& ops);
void addRecorderOps(Operations& ops, Session& session);
void addToastOps(Operations& ops, Session& session);
void addNoteOps(Operations& ops, Session& session);
void addCommandOps(Operations& ops, Session& session);
void addInputOps(Operations& ops, Session& session);
void addContentOps(Operations& ops);
void addHotkeyOps(Operations& ops, Session& session);
void addIndexOps(Operations& ops, Session& session);
void addEditorOps(Operations& ops, Session& session);
void addTemplateSyncOps(Operations& ops);
void addApplicationOps(Operations& ops, Session& session);
void addWindowOps(Operations& ops, Session& session);

} // namespace jotwell
