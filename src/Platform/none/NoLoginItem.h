#pragma once

#include "Platform/LoginItem.h"

namespace jotwell {

/// A desktop that starts nothing at login.
class NoLoginItem : public LoginItem {
public:
    [[nodiscard]] Status status() const override { return Status::notFound; }
    [[nodiscard]] std::optional<QString> registerItem() override { return reason(); }
    [[nodiscard]] std::optional<QString> unregisterItem() override { return reason(); }

private:
    [[nodiscard]] static QString reason()
    {
        return QStringLiteral("This desktop starts no programs at login.");
    }
};

} // namespace jotwell
