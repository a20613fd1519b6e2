#pragma once

class QQmlEngine;

namespace jotwell {

/// Gives `engine` what every view draws with: the image providers of symbols and shadows.
void installViewResources(QQmlEngine& engine);

/// Makes the system's font the application's, with emoji in colour. After QGuiApplication.
void installFonts();

} // namespace jotwell
