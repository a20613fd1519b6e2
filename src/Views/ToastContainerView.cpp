#include "Views/ToastContainerView.h"

namespace jotwell {

ToastContainerView::ToastContainerView(ToastManager& toastManager, QObject* parent)
    : QObject(parent), m_toastManager(toastManager)
{
    connect(&m_toastManager, &ToastManager::currentToastChanged, this, &ToastContainerView::update);
    update(ToastManager::Transition::immediate);
}

void ToastContainerView::dismiss()
{
    m_toastManager.dismiss();
}

void ToastContainerView::update(ToastManager::Transition transition)
{
    const auto& toast = m_toastManager.currentToast();
    m_isShown = toast.has_value();
    if (toast)
        m_toast = *toast;
    emit slotChanged(transition == ToastManager::Transition::animated);
}

} // namespace jotwell
