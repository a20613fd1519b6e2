#pragma once

#include <QQuickImageProvider>

namespace jotwell {

/// The soft shadow of a rounded rectangle, black, as an image to be stretched in its middle: its
/// corners are `blur` + `radius` on each side, and `blur` of that lies outside the rectangle.
[[nodiscard]] QImage shadowImage(int radius, int blur);

/// Gives the views their shadows: image://shadow/<radius>/<blur>.
class ShadowImageProvider : public QQuickImageProvider {
public:
    ShadowImageProvider();

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace jotwell
