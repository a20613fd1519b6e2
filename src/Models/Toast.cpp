#include "Models/Toast.h"

namespace jotwell {

QString color(ToastType type)
{
    // A warning is as red as an error on purpose: only the icon tells them apart.
    return type == ToastType::success ? QStringLiteral("green") : QStringLiteral("red");
}

QString icon(ToastType type)
{
    switch (type) {
    case ToastType::success:
        return QStringLiteral("checkmark.circle.fill");
    case ToastType::warning:
        return QStringLiteral("exclamationmark.triangle.fill");
    case ToastType::error:
        return QStringLiteral("xmark.circle.fill");
    }
    Q_UNREACHABLE();
}

QString iconColor(ToastType)
{
    return QStringLiteral("white");
}

Toast Toast::make(ToastType type, const QString& message, Seconds duration)
{
    return {QUuid::createUuid(), message, type, duration};
}

} // namespace jotwell
