#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace jotwell {

class KeyNames;

/// What the views write on keys: the keyboard's own words, as far as they are known. One for all
/// QML engines; main thread.
class KeyCaps : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    [[nodiscard]] static KeyCaps& ofAllViews();
    [[nodiscard]] static KeyCaps* create(QQmlEngine* qmlEngine, QJSEngine* engine);

    /// `names` is asked from now on; with nullptr keys are written as they are called.
    void setNames(const KeyNames* names) { m_names = names; }

    Q_INVOKABLE [[nodiscard]] QString text(const QString& key) const;

private:
    KeyCaps() = default;

    const KeyNames* m_names = nullptr;
};

} // namespace jotwell
