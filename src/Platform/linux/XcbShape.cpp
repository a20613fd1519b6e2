#include "Platform/linux/XcbShape.h"

#include "Platform/linux/XcbConnection.h"

#include <QPainterPath>

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

QRegion pixelsOf(const WindowShape& shape)
{
    const double ratio = shape.devicePixelRatio;
    const QRectF rect(shape.rect.topLeft() * ratio, shape.rect.size() * ratio);
    QPainterPath path;
    path.addRoundedRect(rect, shape.radius * ratio, shape.radius * ratio);
    return QRegion(path.toFillPolygon().toPolygon());
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
