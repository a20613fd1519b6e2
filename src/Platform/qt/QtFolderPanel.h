#pragma once

#include "Platform/FolderPanel.h"

#include <QPointer>

class QFileDialog;

namespace jotwell {

/// The dialog that Qt takes from the desktop, or its own where the desktop has none. One at a time.
class QtFolderPanel : public FolderPanel {
public:
    void choose(const FolderQuestion& question, QWindow* parent, QObject* context,
                std::function<void(const QString&)> chosen) override;

private:
    QPointer<QFileDialog> m_dialog; ///< owned by itself, and gone once it is closed
};

} // namespace jotwell
