#pragma once

#include "Models/ArrowDirection.h"
#include "Services/CommandTemplateManager.h"
#include "driver/JsonValues.h"

#include <QJsonObject>

#include <vector>

namespace jotwell {

// The input state as JSON, and what its operations take.

template <>
std::optional<TextRange> fromJson(const QJsonValue& json);
template <>
std::optional<ArrowDirection> fromJson(const QJsonValue& json);
template <>
std::optional<CommandTemplateState::Item> fromJson(const QJsonValue& json); // {"command": …} …

[[nodiscard]] QJsonValue toJson(const TextRange& range);
[[nodiscard]] QJsonValue toJson(const std::vector<TextRange>& ranges);
[[nodiscard]] QJsonValue toJson(ArrowDirection direction);

[[nodiscard]] QString nameOf(CommandTemplateField field);
/// The value of one field.
[[nodiscard]] QJsonValue toJson(const CommandTemplateFields& fields, CommandTemplateField field);
/// All fields, and what is derived from them.
[[nodiscard]] QJsonObject toJson(const CommandTemplateState& state);

} // namespace jotwell
