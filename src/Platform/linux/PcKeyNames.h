#pragma once

#include "Platform/KeyNames.h"

namespace jotwell {

/// The keys of a PC keyboard, with Ctrl in the place of Command and Super in that of Control.
class PcKeyNames : public KeyNames {
public:
    [[nodiscard]] QString nameOf(const QString& key) const override;
};

} // namespace jotwell
