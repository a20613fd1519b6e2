#pragma once

#include "Platform/Workspace.h"

namespace jotwell {

/// Hands URLs to the desktop by its `xdg-open`.
class XdgWorkspace : public Workspace {
public:
    void openUrl(const QString& url) override;
};

} // namespace jotwell
