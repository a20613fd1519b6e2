#pragma once

#include "Models/ArrowDirection.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace jotwell {

/// Which place of a list a row is to come to.
class ScrollAnchor : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("is a list of names")

public:
    enum Anchor { top, bottom, center };
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
