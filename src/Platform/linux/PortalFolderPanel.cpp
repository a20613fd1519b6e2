#include "Platform/linux/PortalFolderPanel.h"

#include "Platform/linux/DesktopPortal.h"
#include "Platform/linux/FileUri.h"
#include "Platform/qt/BeginningFolder.h"
#include "Support/Logging.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QFile>
#include <QGuiApplication>

#include <utility>

namespace jotwell {

namespace {

const QString fileChooser = QStringLiteral("org.freedesktop.portal.FileChooser");

constexpr uint firstWithFolders = 3; // earlier ones would let the user choose a file

// A window's name for other programs, as far as its system gives it one.
QString sharedNameOf(const QWindow* window)
{
    if (!window || QGuiApplication::platformName() != u"xcb")
        return {};
    return QStringLiteral("x11:") + QString::number(window->winId(), 16);
}

} // namespace

PortalFolderPanel::PortalFolderPanel(std::unique_ptr<FolderPanel> otherwise,
                                     std::chrono::milliseconds patience)
    : m_bus(QDBusConnection::sessionBus()), m_otherwise(std::move(otherwise)), m_patience(patience)
{
    auto* watcher = new QDBusServiceWatcher(DesktopPortal::service, m_bus,
                                            QDBusServiceWatcher::WatchForOwnerChange, this);
    // A call without a reply fails by itself; what has been taken goes with the portal.
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] {
        if (m_request && m_request->isTaken())
            end();
    });
}

PortalFolderPanel::~PortalFolderPanel() = default;

void PortalFolderPanel::choose(const FolderQuestion& question, QWindow* parent, QObject* context,
                               std::function<void(const QString&)> chosen)
{
    if (m_asking)
        return;
    m_asked = {question, parent, context, std::move(chosen)};
    m_asking = std::make_unique<QObject>();
    connect(context, &QObject::destroyed, m_asking.get(), [this] { end(); });
    askVersion();
}

void PortalFolderPanel::askVersion()
{
    const auto question =
        DesktopPortal::call(QStringLiteral("org.freedesktop.DBus.Properties"),
                            QStringLiteral("Get"), {fileChooser, QStringLiteral("version")});
    const auto call = m_bus.asyncCall(question, static_cast<int>(m_patience.count()));
    auto* watcher = new QDBusPendingCallWatcher(call, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, watcher, &QObject::deleteLater);
    connect(watcher, &QDBusPendingCallWatcher::finished, m_asking.get(), [this, watcher] {
        const QDBusPendingReply<QDBusVariant> reply(*watcher);
        const bool hasFolders =
            !reply.isError() && reply.value().variant().toUInt() >= firstWithFolders;
        hasFolders ? open() : showOther();
    });
}

void PortalFolderPanel::open()
{
    const FolderQuestion& question = m_asked.question;
    const QString token = QStringLiteral("jotwellFolder%1").arg(++m_questions);
    const QVariantList arguments{
        sharedNameOf(m_asked.parent),
        question.message.isEmpty() ? question.prompt : question.message,
        options(token),
    };
    m_hasTakenKeyboard = false;
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, m_asking.get(),
            [this](const QWindow* window) { m_hasTakenKeyboard |= window == nullptr; });
    m_request.reset(new PortalRequest(m_bus, token));
    m_request->call(
        DesktopPortal::call(fileChooser, QStringLiteral("OpenFile"), arguments),
        [this](PortalRequest::Outcome outcome, const QVariantMap& results) {
            takeAnswer(outcome, results);
        },
        m_patience);
}

QVariantMap PortalFolderPanel::options(const QString& token) const
{
    QByteArray folder = QFile::encodeName(beginningFolder(m_asked.question.folder));
    folder.append('\0'); // which belongs to a name of bytes
    QVariantMap options{
        {QStringLiteral("handle_token"), token},    {QStringLiteral("modal"), true},
        {QStringLiteral("multiple"), false},        {QStringLiteral("directory"), true},
        {QStringLiteral("current_folder"), folder},
    };
    if (!m_asked.question.prompt.isEmpty())
        options.insert(QStringLiteral("accept_label"), m_asked.question.prompt);
    return options;
}

// A panel that is closed by Escape or by its frame has failed, in the words of GTK's portal, just
// as one that never came. But it has had the keyboard.
void PortalFolderPanel::takeAnswer(PortalRequest::Outcome outcome, const QVariantMap& results)
{
    const bool isClosed = m_request->isTaken() && m_hasTakenKeyboard;
    if (outcome == PortalRequest::Outcome::granted)
        takeFolder(results.value(QStringLiteral("uris")).toStringList());
    else if (outcome == PortalRequest::Outcome::denied || isClosed)
        end();
    else
        showOther();
}

void PortalFolderPanel::takeFolder(const QStringList& uris)
{
    const Asked asked = end();
    for (const QString& uri : uris) {
        if (const auto path = localPathOf(uri)) {
            asked.chosen(*path);
            return;
        }
    }
    logError(QStringLiteral("FolderPanel"),
             QStringLiteral("The desktop's panel has given no folder of this machine: ") +
                 uris.join(u' '));
}

void PortalFolderPanel::showOther()
{
    Asked asked = end();
    m_otherwise->choose(asked.question, asked.parent, asked.context, std::move(asked.chosen));
}

PortalFolderPanel::Asked PortalFolderPanel::end()
{
    m_request.reset();
    m_asking.reset();
    return std::exchange(m_asked, {});
}

} // namespace jotwell
