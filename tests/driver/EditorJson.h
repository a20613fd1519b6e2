#pragma once

#include "Views/Editor/CustomTextEditorCoordinator.h"
#include "Views/Editor/StyledText.h"
#include "driver/InputJson.h"

namespace jotwell {

// What goes into the editor and comes out of it as JSON.

template <>
std::optional<CurrentEvent> fromJson(const QJsonValue& json);

/// Only what isn't plain.
[[nodiscard]] QJsonValue toJson(const TextAttributes& attributes);
[[nodiscard]] QJsonValue toJson(const std::vector<AttributeRun>& runs);

} // namespace jotwell
