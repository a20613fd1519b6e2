#pragma once

#include <QProcess>

namespace jotwell {

/// A session bus of our own; the process and its children use it from then on.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();

private:
    QProcess m_daemon;
};

} // namespace jotwell
