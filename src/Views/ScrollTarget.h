#pragma once

#include "Models/ArrowDirection.h"

#include <QObject>

#include <optional>

namespace jotwell {

/// Which place of a list a row is to come to.
class ScrollAnchor : public QObject {
    Q_OBJECT

public:
    /// Numbered as the ways in which a `ListView` positions a row.
    enum Anchor { top, center, bottom };
    Q_ENUM(Anchor)

    /// A row that an arrow key has come to jumps to the far edge, so that what follows is seen;
    /// any other comes to the middle.
    [[nodiscard]] static Anchor of(std::optional<ArrowDirection> direction)
    {
        if (!direction)
            return center;
        return *direction == ArrowDirection::down ? top : bottom;
    }
};

/// Where a list is to scroll to.
struct ScrollTarget {
    int index = 0;
    ScrollAnchor::Anchor anchor = ScrollAnchor::center;

    bool operator==(const ScrollTarget&) const = default;
};

} // namespace jotwell
