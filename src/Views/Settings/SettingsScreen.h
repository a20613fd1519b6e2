#pragma once

#include <QObject>

namespace jotwell {

/// What stands beside the sidebar for one of its entries. Main thread.
class SettingsScreen : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// The screen has come on show: it reads what it shows.
    virtual void appear() {}
    /// It is on show no more, or the window closes.
    virtual void disappear() {}
};

} // namespace jotwell
