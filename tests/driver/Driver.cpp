#include "driver/Driver.h"

#include "driver/Request.h"
#include "driver/Session.h"

#include <string>

namespace jotwell {

Driver::Driver(Session& session) : m_defaults(session.platform().defaults())
{
    addSessionOps(m_operations, session);
    addDefaultsOps(m_operations, session);
    addSettingsOps(m_operations);
    addRecordOps(m_operations);
    addToastOps(m_operations, session);
    addNoteOps(m_operations, session);
    addCommandOps(m_operations, session);
    addInputOps(m_operations, session);
    addContentOps(m_operations);
    addIndexOps(m_operations, session);
    addTemplateSyncOps(m_operations);
    addEditorOps(m_operations, session);
    addWindowOps(m_operations, session);
    addApplicationOps(m_operations, session);
    addHotkeyOps(m_operations, session);
    addPanelOps(m_operations, session);
    addRecorderOps(m_operations, session);
    m_operations.add(u"driver.info", {}, [this, &session] { return info(session); });
}

bool Driver::run(std::istream& input, std::FILE* output)
{
    for (std::string line; std::getline(input, line);) {
        const auto bytes =
            QByteArray::fromRawData(line.data(), static_cast<qsizetype>(line.size()));
        if (bytes.trimmed().isEmpty())
            continue;
        const QByteArray answer = answerTo(bytes);
        m_defaults.synchronize(); // whoever reads the file between two lines sees what stands
        const auto size = static_cast<std::size_t>(answer.size());
        if (std::fwrite(answer.constData(), 1, size, output) != size || std::fflush(output) != 0)
            return false;
    }
    return true;
}

QJsonValue Driver::info(Session& session) const
{
    return QJsonObject{{QStringLiteral("protocol"), 1},
                       {QStringLiteral("home"), session.platform().home()},
                       {QStringLiteral("databasePath"), session.platform().databasePath()},
                       {QStringLiteral("features"), QJsonArray{QStringLiteral("clock")}},
                       {QStringLiteral("ops"), toJson(m_operations.names())}};
}

QByteArray Driver::answerTo(const QByteArray& line) const
{
    const Request request = readRequest(line);
    if (request.failure)
        return answerLine(request.id, *request.failure);
    const Operation run = m_operations.find(request.op);
    if (!run)
        return answerLine(request.id, Failure{QStringLiteral("notImplemented"),
                                              QStringLiteral("Not offered: ") + request.op});
    return answerLine(request.id, run(request.arguments));
}

} // namespace jotwell
