#include "driver/InputRecorder.h"

#include "Services/CommandTemplateManager.h"
#include "driver/EffectRecorder.h"
#include "driver/InputJson.h"

#include <QJsonObject>

#include <utility>

namespace jotwell {

void InputRecorder::listenTo(const CommandTemplateState& state)
{
    m_context = std::make_unique<QObject>();
    m_before = state.fields();
    m_changes = {};
    QObject::connect(&state, &CommandTemplateState::changed, m_context.get(),
                     [this, &state](CommandTemplateField field) { record(state.fields(), field); });
    QObject::connect(&state, &CommandTemplateState::scrollToSelectedItem, m_context.get(),
                     [this](std::optional<ArrowDirection> direction) {
                         QJsonObject userInfo;
                         if (direction)
                             userInfo.insert(QStringLiteral("direction"), toJson(*direction));
                         m_effects.recordNotification(QStringLiteral("ScrollToSelectedItem"),
                                                      QJsonValue(), userInfo);
                     });
}

QJsonArray InputRecorder::take()
{
    return std::exchange(m_changes, QJsonArray());
}

void InputRecorder::record(const CommandTemplateFields& fields, CommandTemplateField field)
{
    m_changes.append(QJsonObject{{QStringLiteral("property"), nameOf(field)},
                                 {QStringLiteral("old"), toJson(m_before, field)},
                                 {QStringLiteral("new"), toJson(fields, field)}});
    m_before = fields;
}

} // namespace jotwell
