#include "Platform/linux/InotifyFolderWatcher.h"

#include <QFile>
#include <QSocketNotifier>

#include <array>

#include <fcntl.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace jotwell {

namespace {

class InotifyFolderWatch : public FolderWatch {
public:
    InotifyFolderWatch(int descriptor, std::function<void()> changed)
        : m_descriptor(descriptor), m_notifier(descriptor, QSocketNotifier::Read)
    {
        QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier,
                         [this, changed = std::move(changed)] {
                             drain();
                             const auto told = changed; // the receiver may end this watch
                             told();
                         });
    }

    ~InotifyFolderWatch() override
    {
        m_notifier.setEnabled(false);
        ::close(m_descriptor);
    }

private:
    void drain() const
    {
        std::array<char, 4096> events;
        while (::read(m_descriptor, events.data(), events.size()) > 0) {
        }
    }

    int m_descriptor;
    QSocketNotifier m_notifier;
};

} // namespace

bool InotifyFolderWatcher::canOpen(const QString& folder)
{
    const int descriptor = ::open(QFile::encodeName(folder).constData(),
                                  O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    ::close(descriptor);
    return true;
}

std::unique_ptr<FolderWatch> InotifyFolderWatcher::watch(const QString& folder,
                                                         std::function<void()> changed)
{
    constexpr uint32_t events =
        IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF;
    const int descriptor = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (descriptor < 0)
        return nullptr;
    if (::inotify_add_watch(descriptor, QFile::encodeName(folder).constData(), events) < 0) {
        ::close(descriptor);
        return nullptr;
    }
    return std::make_unique<InotifyFolderWatch>(descriptor, std::move(changed));
}

} // namespace jotwell
