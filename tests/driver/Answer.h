#pragma once

#include "Models/ObsidianTemplateJson.h"
#include "Services/ObsidianError.h"
#include "Services/TemplateSyncService.h"
#include "Support/Result.h"

#include <QJsonValue>
#include <QString>

#include <variant>

namespace jotwell {

/// Why a request has no result.
struct Failure {
    QString type;
    QString message;
};

/// What a request is answered with.
using Answer = Result<QJsonValue, Failure>;

[[nodiscard]] Failure badRequest(const QString& message);

[[nodiscard]] Failure failureOf(const ObsidianError& error);
[[nodiscard]] Failure failureOf(const SystemError& error);
[[nodiscard]] Failure failureOf(const DecodingError& error);
[[nodiscard]] Failure failureOf(const TemplateSyncError& error);

template <typename... Errors>
[[nodiscard]] Failure failureOf(const std::variant<Errors...>& error)
{
    return std::visit([](const auto& actual) { return failureOf(actual); }, error);
}

} // namespace jotwell
