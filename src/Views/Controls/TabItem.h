#pragma once

#include <QObject>
#include <QString>
#include <QUuid>
#include <QtQml/qqmlregistration.h>

namespace jotwell {

/// One tab of a CustomTabsView. `icon` and `secondaryIcon` name symbols, or are empty.
struct TabItem {
    Q_GADGET
    QML_VALUE_TYPE(tabItem)

    Q_PROPERTY(QString id READ idText CONSTANT)
    Q_PROPERTY(QString title MEMBER title CONSTANT)
    Q_PROPERTY(QString icon MEMBER icon CONSTANT)
    Q_PROPERTY(QString secondaryIcon MEMBER secondaryIcon CONSTANT)

public:
    QUuid id;
    QString title;
    QString icon;
    QString secondaryIcon;

    [[nodiscard]] QString idText() const { return id.toString(); }

    bool operator==(const TabItem&) const = default;
};

} // namespace jotwell
