#pragma once

#include "Models/ObsidianTemplate.h"
#include "Support/Result.h"

#include <QByteArray>
#include <QJsonObject>

namespace jotwell {

// The stored form of templates, JSON in UTF-8. Unknown members of an object are passed over; one
// record that can't be read fails the whole text.

/// Why a text is no template.
struct DecodingError {
    QString description;
};

[[nodiscard]] Result<ObsidianTemplate, DecodingError> decodeTemplate(const QByteArray& json);
[[nodiscard]] Result<ObsidianTemplates, DecodingError> decodeTemplates(const QByteArray& json);
[[nodiscard]] QByteArray encodeTemplate(const ObsidianTemplate& value);
[[nodiscard]] QByteArray encodeTemplates(const ObsidianTemplates& values);

[[nodiscard]] Result<ObsidianTemplate, DecodingError> templateFromJson(const QJsonValue& json);
[[nodiscard]] QJsonObject templateToJson(const ObsidianTemplate& value);
[[nodiscard]] Result<TemplateType, DecodingError> templateTypeFromJson(const QJsonValue& json);

} // namespace jotwell
