#include "Views/ShadowImageProvider.h"

#include <QColor>

#include <algorithm>
#include <cmath>

namespace jotwell {

namespace {

// Distance of a point from the rounded rectangle's outline, negative inside; `x` and `y` count from
// the rectangle's centre, and `half` is half its edge.
double distanceFromOutline(double x, double y, double half, double radius)
{
    const double dx = std::abs(x) - (half - radius);
    const double dy = std::abs(y) - (half - radius);
    const double outside = std::hypot(std::max(dx, 0.0), std::max(dy, 0.0));
    return outside + std::min(std::max(dx, dy), 0.0) - radius;
}

// From full under the rectangle down to nothing at `blur`, with a soft end.
double strength(double distance, double blur)
{
    const double t = std::clamp(1.0 - distance / blur, 0.0, 1.0);
    return t * t;
}

} // namespace

QImage shadowImage(int radius, int blur)
{
    const int edge = 2 * (radius + blur) + 1;
    const double centre = edge / 2.0;
    QImage image(edge, edge, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < edge; ++y) {
        for (int x = 0; x < edge; ++x) {
            const double distance =
                distanceFromOutline(x + 0.5 - centre, y + 0.5 - centre, centre - blur, radius);
            const int alpha = static_cast<int>(std::lround(255 * strength(distance, blur)));
            image.setPixel(x, y, qRgba(0, 0, 0, alpha));
        }
    }
    return image;
}

ShadowImageProvider::ShadowImageProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage ShadowImageProvider::requestImage(const QString& id, QSize* size, const QSize&)
{
    const int radius = id.section(QLatin1Char('/'), 0, 0).toInt();
    const int blur = id.section(QLatin1Char('/'), 1, 1).toInt();
    QImage image = shadowImage(std::clamp(radius, 0, 64), std::clamp(blur, 1, 64));
    if (size)
        *size = image.size();
    return image;
}

} // namespace jotwell
