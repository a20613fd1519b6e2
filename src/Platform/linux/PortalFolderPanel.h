#pragma once

#include "Platform/FolderPanel.h"
#include "Platform/linux/PortalRequest.h"

#include <QDBusConnection>
#include <QObject>
#include <QPointer>
#include <QWindow>

#include <chrono>
#include <memory>

namespace jotwell {

/// The desktop's own window for choosing a folder, by way of its portal; another panel takes its
/// place wherever the portal has none to show. One at a time. The bus is never waited for, and the
/// user for as long as the portal is there.
class PortalFolderPanel : public QObject, public FolderPanel {
    Q_OBJECT

public:
    /// How long a call may go without a reply before `otherwise` is shown. A desktop that is just
    /// starting its portal needs a part of that.
    static constexpr std::chrono::milliseconds usualPatience{3000};

    explicit PortalFolderPanel(std::unique_ptr<FolderPanel> otherwise,
                               std::chrono::milliseconds patience = usualPatience);
    ~PortalFolderPanel() override;

    void choose(const FolderQuestion& question, QWindow* parent, QObject* context,
                std::function<void(const QString&)> chosen) override;

private:
    struct Asked {
        FolderQuestion question;
        QPointer<QWindow> parent;
        QPointer<QObject> context;
        std::function<void(const QString&)> chosen;
    };

    void askVersion();
    void open();
    [[nodiscard]] QVariantMap options(const QString& token) const;
    void takeAnswer(PortalRequest::Outcome outcome, const QVariantMap& results);
    void takeFolder(const QStringList& uris);
    void showOther();
    Asked end();

    QDBusConnection m_bus;
    const std::unique_ptr<FolderPanel> m_otherwise;
    const std::chrono::milliseconds m_patience;
    Asked m_asked;
    std::unique_ptr<QObject> m_asking; ///< there while the portal is asked; replies end with it
    PortalRequestPointer m_request;
    bool m_hasTakenKeyboard = false; ///< the panel, from the program's windows
    int m_questions = 0;
};

} // namespace jotwell
