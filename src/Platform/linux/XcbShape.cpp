#include "Platform/linux/XcbShape.h"

#include "Platform/linux/XcbConnection.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <xcb/shape.h>

namespace jotwell {

namespace {

std::vector<xcb_rectangle_t> rectangles(const QRegion& region)
{
    std::vector<xcb_rectangle_t> found;
    found.reserve(static_cast<size_t>(region.rectCount()));
    for (const QRect& rect : region)
        found.push_back({static_cast<int16_t>(rect.x()), static_cast<int16_t>(rect.y()),
                         static_cast<uint16_t>(rect.width()),
                         static_cast<uint16_t>(rect.height())});
    return found;
}

void setRegion(xcb_window_t window, xcb_shape_kind_t kind,
               const std::vector<xcb_rectangle_t>& region)
{
    xcb_shape_rectangles(xcbConnection(), XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_YX_BANDED,
                         window, 0, 0, static_cast<uint32_t>(region.size()), region.data());
}

} // namespace

// Row by row, as a polygon of whole pixels would be a rectangle with slanting corners. A pixel that
// the curve goes through is left out: the shadow shines through it.
QRegion pixelsOf(const WindowShape& shape)
{
    const double ratio = shape.devicePixelRatio;
    const QRect rect = QRectF(shape.rect.topLeft() * ratio, shape.rect.size() * ratio).toRect();
    const double radius = shape.radius * ratio;
    const int rows = std::min(static_cast<int>(radius), rect.height() / 2);
    QRegion pixels(rect.adjusted(0, rows, 0, -rows));
    for (int row = 0; row < rows; ++row) {
        const double height = radius - row - 0.5;
        const double inset = radius - std::sqrt(radius * radius - height * height);
        const int left = static_cast<int>(std::ceil(inset));
        const QRect line(rect.x() + left, rect.y() + row, rect.width() - 2 * left, 1);
        pixels += line;
        pixels += line.translated(0, rect.height() - 1 - 2 * row);
    }
    return pixels;
}

void setXcbShape(xcb_window_t window, const WindowShape& shape)
{
    auto* connection = xcbConnection();
    const auto* extension = xcb_get_extension_data(connection, &xcb_shape_id);
    if (!extension || !extension->present)
        return;
    const auto region = rectangles(pixelsOf(shape));
    setRegion(window, XCB_SHAPE_SK_INPUT, region);
    if (shape.isCut)
        setRegion(window, XCB_SHAPE_SK_BOUNDING, region);
    else
        xcb_shape_mask(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, window, 0, 0,
                       XCB_PIXMAP_NONE);
}

} // namespace jotwell
