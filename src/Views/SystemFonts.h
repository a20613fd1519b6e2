#pragma once

#include <QFont>
#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace jotwell {

/// The desktop's fonts besides that of the interface, which is the application's. Read from the
/// desktop's settings when it is made; main thread.
class SystemFonts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    SystemFonts();
    [[nodiscard]] static const SystemFonts& shared();

    // Families in the order of preference.

    const QStringList monospaced;
    const QStringList emoji; ///< in colours, where there are such

    // `pixelSize` in pixels, `weight` as in QFont.

    Q_INVOKABLE [[nodiscard]] QFont monospacedFont(int pixelSize, int weight) const;
    Q_INVOKABLE [[nodiscard]] QFont emojiFont(int pixelSize) const;
};

} // namespace jotwell
