#pragma once

#include "Platform/LoginItem.h"

namespace jotwell {

/// A desktop that may refuse, or leave the last word to the user.
class FakeLoginItem : public LoginItem {
public:
    Status state = Status::notRegistered;
    Status afterRegistration = Status::enabled;
    std::optional<QString> failure;
    int calls = 0; ///< of both kinds

    [[nodiscard]] Status status() const override { return state; }
    [[nodiscard]] std::optional<QString> registerItem() override
    {
        return become(afterRegistration);
    }
    [[nodiscard]] std::optional<QString> unregisterItem() override
    {
        return become(Status::notRegistered);
    }

private:
    std::optional<QString> become(Status status)
    {
        ++calls;
        if (!failure)
            state = status;
        return failure;
    }
};

} // namespace jotwell
