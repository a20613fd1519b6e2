#pragma once

#include "driver/Answer.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

namespace jotwell {

/// One line of input.
struct Request {
    QByteArray id = "null"; ///< as JSON, to be given back as it came
    QString op;
    QJsonObject arguments;
    std::optional<Failure> failure; ///< why this is no request
};

[[nodiscard]] Request readRequest(const QByteArray& line);

/// The answer to the request of that id, as one line of output.
[[nodiscard]] QByteArray answerLine(const QByteArray& id, const Answer& answer);

} // namespace jotwell
