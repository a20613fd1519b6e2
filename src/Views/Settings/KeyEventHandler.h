#pragma once

#include "Views/Settings/KeyView.h"

#include <QPointer>
#include <QQuickItem>

namespace jotwell {

/// An invisible view that lets a `KeyView` hear the keys of the window that it is in. Main thread.
class KeyEventHandler : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(
        jotwell::KeyView* keyView READ keyView WRITE setKeyView NOTIFY keyViewChanged REQUIRED)

public:
    using QQuickItem::QQuickItem;
    ~KeyEventHandler() override;

    [[nodiscard]] KeyView* keyView() const { return m_keyView; }
    void setKeyView(KeyView* keyView);

signals:
    void keyViewChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    void listenTo(QQuickWindow* window);

    QPointer<KeyView> m_keyView;
    QPointer<QQuickWindow> m_window; ///< that is heard
};

} // namespace jotwell
