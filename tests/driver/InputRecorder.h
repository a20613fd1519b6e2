#pragma once

#include "Services/Input/CommandTemplateFields.h"

#include <QJsonArray>
#include <QObject>

#include <memory>

namespace jotwell {

class CommandTemplateState;
class EffectRecorder;

/// Remembers the assignments to the fields of one input state, in their order, and hands its
/// requests to scroll to the effects. Main thread.
class InputRecorder {
public:
    explicit InputRecorder(EffectRecorder& effects) : m_effects(effects) {}

    /// From now on to this one alone; what has been remembered is forgotten.
    void listenTo(const CommandTemplateState& state);
    /// Gives what has been remembered, and forgets it.
    [[nodiscard]] QJsonArray take();

private:
    void record(const CommandTemplateFields& fields, CommandTemplateField field);

    EffectRecorder& m_effects;
    CommandTemplateFields m_before;
    QJsonArray m_changes;
    std::unique_ptr<QObject> m_context; ///< its end is the end of the listening
};

} // namespace jotwell
