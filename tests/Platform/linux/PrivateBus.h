#pragma once

#include <QProcess>
#include <QTemporaryDir>

namespace jotwell {

/// A session bus of our own, which starts nothing; the process and its children use it from then
/// on.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
};

} // namespace jotwell
