#include "Views/Settings/KeyEventHandler.h"

#include <QQuickWindow>

namespace jotwell {

KeyEventHandler::~KeyEventHandler()
{
    listenTo(nullptr);
}

void KeyEventHandler::setKeyView(KeyView* keyView)
{
    if (keyView == m_keyView)
        return;
    listenTo(nullptr);
    m_keyView = keyView;
    listenTo(window());
    emit keyViewChanged();
}

void KeyEventHandler::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemSceneChange)
        listenTo(data.window);
    QQuickItem::itemChange(change, data);
}

void KeyEventHandler::listenTo(QQuickWindow* window)
{
    if (m_window && m_keyView)
        m_window->removeEventFilter(m_keyView);
    m_window = window;
    if (m_window && m_keyView)
        m_window->installEventFilter(m_keyView);
}

} // namespace jotwell
