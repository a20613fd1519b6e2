#pragma once

#include <QString>

#include <gtest/gtest.h>

#include <unistd.h>

namespace jotwell {

/// Makes root an ordinary user, who owns `folder`, for its life: nothing is unreadable for root.
class Unprivileged {
public:
    explicit Unprivileged(const QString& folder)
    {
        constexpr uid_t nobody = 65534;
        if (::getuid() != 0)
            return;
        EXPECT_EQ(::chown(qPrintable(folder), nobody, nobody), 0);
        EXPECT_EQ(::seteuid(nobody), 0);
    }
    ~Unprivileged() { EXPECT_EQ(::seteuid(::getuid()), 0); }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;
};

} // namespace jotwell
