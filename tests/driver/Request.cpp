#include "driver/Request.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace jotwell {

namespace {

QByteArray written(const QJsonValue& value)
{
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return array.sliced(1, array.size() - 2);
}

qsizetype endOfString(const QByteArray& json, qsizetype quote)
{
    for (qsizetype at = quote + 1; at < json.size(); ++at) {
        if (json.at(at) == '\\')
            ++at;
        else if (json.at(at) == '"')
            return at;
    }
    return json.size() - 1;
}

QString decodedString(const QByteArray& literal)
{
    return QJsonDocument::fromJson('[' + literal + ']').array().at(0).toString();
}

QByteArray numberAt(const QByteArray& json, qsizetype start)
{
    qsizetype end = start;
    while (end < json.size() && json.at(end) != ',' && json.at(end) != '}')
        ++end;
    return json.sliced(start, end - start).trimmed();
}

// QJsonValue hasn't room for every number that JSON can write, so the object's text is asked.
QByteArray numericMember(const QByteArray& object, const QString& key)
{
    QByteArray number;
    QByteArray literal;
    int depth = 0;
    for (qsizetype at = 0; at < object.size(); ++at) {
        const char symbol = object.at(at);
        if (symbol == '"') {
            const qsizetype end = endOfString(object, at);
            if (depth == 1)
                literal = object.sliced(at, end - at + 1);
            at = end;
        } else if (symbol == '{' || symbol == '[') {
            ++depth;
        } else if (symbol == '}' || symbol == ']') {
            --depth;
        } else if (symbol == ':' && depth == 1 && decodedString(literal) == key) {
            number = numberAt(object, at + 1);
        }
    }
    return number;
}

Request failed(Request request, const QString& message)
{
    request.failure = badRequest(message);
    return request;
}

} // namespace

Request readRequest(const QByteArray& line)
{
    Request request;
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(line, &error);
    if (error.error != QJsonParseError::NoError)
        return failed(request, QStringLiteral("No JSON: ") + error.errorString());
    if (!document.isObject())
        return failed(request, QStringLiteral("No JSON object"));
    const QJsonObject object = document.object();
    const QJsonValue id = object.value(u"id");
    if (!id.isString() && !id.isDouble())
        return failed(request, QStringLiteral("\"id\" is no number or string"));
    request.id = id.isString() ? written(id) : numericMember(line, QStringLiteral("id"));
    if (!object.value(u"op").isString())
        return failed(request, QStringLiteral("\"op\" is no string"));
    request.op = object.value(u"op").toString();
    const QJsonValue arguments = object.value(u"args");
    if (!arguments.isUndefined() && !arguments.isNull() && !arguments.isObject())
        return failed(request, QStringLiteral("\"args\" is no object"));
    request.arguments = arguments.toObject();
    return request;
}

QByteArray answerLine(const QByteArray& id, const Answer& answer)
{
    QByteArray outcome;
    if (answer)
        outcome = "\"result\":" + written(*answer);
    else
        outcome = "\"error\":" +
                  written(QJsonObject{{QStringLiteral("type"), answer.error().type},
                                      {QStringLiteral("message"), answer.error().message}});
    return "{\"id\":" + id + ',' + outcome + "}\n";
}

} // namespace jotwell
