#include "driver/EffectRecorder.h"

#include "driver/JsonValues.h"

#include <utility>

namespace jotwell {

namespace {

const QString kindKey = QStringLiteral("kind");

QString nameOf(LogRecord::Level level)
{
    switch (level) {
    case LogRecord::Level::info:
        return QStringLiteral("info");
    case LogRecord::Level::error:
        return QStringLiteral("error");
    case LogRecord::Level::print:
        return QStringLiteral("print");
    }
    Q_UNREACHABLE();
}

} // namespace

void EffectRecorder::recordOpenUrl(const QString& url)
{
    record(QStringLiteral("openURL"), {{QStringLiteral("url"), url}});
}

void EffectRecorder::recordToast(const Toast& toast)
{
    QJsonObject effect = toJson(toast).toObject();
    effect.remove(u"id");
    record(QStringLiteral("toast"), effect);
}

void EffectRecorder::recordLog(const LogRecord& logged)
{
    record(QStringLiteral("log"), {{QStringLiteral("category"), logged.category},
                                   {QStringLiteral("level"), nameOf(logged.level)},
                                   {QStringLiteral("message"), logged.message}});
}

void EffectRecorder::recordSearchResults(const NoteSearchResults& notes)
{
    record(QStringLiteral("searchResults"), {{QStringLiteral("results"), toJson(notes)}});
}

void EffectRecorder::recordToggle()
{
    record(QStringLiteral("toggleFloatingWindow"), {});
}

void EffectRecorder::recordHotkey()
{
    record(QStringLiteral("hotkeyPressed"), {});
}

void EffectRecorder::recordMenuRefresh()
{
    record(QStringLiteral("refreshMenuBar"), {});
}

void EffectRecorder::recordNotification(const QString& name, const QJsonValue& object,
                                        const QJsonValue& userInfo)
{
    record(QStringLiteral("notification"), {{QStringLiteral("name"), name},
                                            {QStringLiteral("object"), object},
                                            {QStringLiteral("userInfo"), userInfo}});
}

QJsonArray EffectRecorder::take(const std::optional<QStringList>& kinds)
{
    const QMutexLocker lock(&m_mutex);
    QJsonArray taken;
    QJsonArray left;
    for (const QJsonValue each : std::as_const(m_effects)) {
        const bool isAskedFor = !kinds || kinds->contains(each[kindKey].toString());
        (isAskedFor ? taken : left).append(each);
    }
    m_effects = left;
    return taken;
}

void EffectRecorder::record(const QString& kind, QJsonObject effect)
{
    effect.insert(kindKey, kind);
    const QMutexLocker lock(&m_mutex);
    m_effects.append(effect);
}

} // namespace jotwell
