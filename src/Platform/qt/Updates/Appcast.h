#pragma once

#include "Platform/Updater.h"
#include "Support/Result.h"

#include <QByteArray>
#include <QString>
#include <QVersionNumber>

#include <vector>

namespace jotwell {

/// An item of the feed that this program could become.
struct AppcastVersion {
    QVersionNumber version; ///< normalised, so that 1.0 is 1
    AppcastItem item;
};

/// What a feed says to the programs on one system.
struct Appcast {
    static constexpr int mostItems = 1000;

    int itemCount = 0;                    ///< with those that are for others
    std::vector<AppcastVersion> versions; ///< no two with the same version
};

/// Reads a feed that has been verified; the reason if it can't be one of ours. Items for another
/// system than `system`, of a channel of its own or without a version of numbers and dots are left
/// out. Any thread.
[[nodiscard]] Result<Appcast, QString> parseAppcast(const QByteArray& feed, const QString& system);

/// The version of the numbers in `text`, normalised; null if it holds anything but numbers and
/// dots.
[[nodiscard]] QVersionNumber versionNumber(const QString& text);

/// The highest version above `running`, if there is one.
[[nodiscard]] std::optional<AppcastItem> newestUpdate(const Appcast& appcast,
                                                      const QVersionNumber& running);

} // namespace jotwell
