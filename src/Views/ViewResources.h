#pragma once

#include <QtGlobal>

class QQmlEngine;

namespace jotwell {

class DesktopAppearance;
class KeyNames;

/// Gives `engine` what every view draws with: the image providers of symbols and shadows.
void installViewResources(QQmlEngine& engine);

/// Lets all views follow the desktop's appearance and use its names of keys, as long as this lives.
class DesktopLooks {
public:
    DesktopLooks(DesktopAppearance& appearance, const KeyNames& keyNames);
    ~DesktopLooks();
    Q_DISABLE_COPY_MOVE(DesktopLooks)
};

/// Makes the system's font the application's, with emoji in colour. After QGuiApplication.
void installFonts();

} // namespace jotwell
