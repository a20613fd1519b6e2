#pragma once

#include "Platform/FolderPanel.h"

namespace jotwell {

/// The dialog that Qt takes from the desktop, or its own where the desktop has none.
class QtFolderPanel : public FolderPanel {
public:
    void choose(const FolderQuestion& question, QWindow* parent, QObject* context,
                std::function<void(const QString&)> chosen) override;
};

} // namespace jotwell
