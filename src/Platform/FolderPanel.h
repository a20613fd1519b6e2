#pragma once

#include <QString>

#include <functional>

class QObject;
class QWindow;

namespace jotwell {

/// What the user is to choose a folder for.
struct FolderQuestion {
    QString message;
    QString prompt; ///< on the button that chooses, empty for the desktop's own word
    QString folder; ///< where to begin, if it is there
};

/// The desktop's window for choosing a folder. Main thread only.
class FolderPanel {
public:
    virtual ~FolderPanel() = default;

    /// Asks the user, and doesn't wait for it. `chosen` gets an absolute path on a later turn of
    /// the event loop; nothing is called if the user chooses none or `context` is destroyed
    /// meanwhile. The panel belongs to the window `parent`, if there is one.
    virtual void choose(const FolderQuestion& question, QWindow* parent, QObject* context,
                        std::function<void(const QString&)> chosen) = 0;
};

} // namespace jotwell
