#pragma once

#include "QtPrinters.h"
#include "Services/ToastManager.h"

#include <QCoreApplication>
#include <QThread>

#include <gtest/gtest.h>

#include <vector>

namespace jotwell {

/// A toast without its identifier.
struct ShownToast {
    ToastType type;
    double seconds;
    QString message;

    bool operator==(const ShownToast&) const = default;
};

inline void PrintTo(const ShownToast& toast, std::ostream* out)
{
    *out << icon(toast.type).toStdString() << " for " << toast.seconds << " s ";
    PrintTo(toast.message, out);
}

/// All toasts that were shown, in their order; each must come on the main thread.
class ToastLog {
public:
    explicit ToastLog(const ToastManager& toasts)
    {
        const auto note = [this](const Toast& toast) {
            EXPECT_EQ(QThread::currentThread(), qApp->thread());
            shown.push_back({toast.type, toast.duration.count(), toast.message});
        };
        QObject::connect(&toasts, &ToastManager::shown, &m_context, note, Qt::DirectConnection);
    }

    std::vector<ShownToast> shown;

private:
    QObject m_context;
};

} // namespace jotwell
