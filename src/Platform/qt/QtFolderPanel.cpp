#include "Platform/qt/QtFolderPanel.h"

#include "Platform/qt/BeginningFolder.h"

#include <QFileDialog>
#include <QWindow>

#include <utility>

namespace jotwell {

void QtFolderPanel::choose(const FolderQuestion& question, QWindow* parent, QObject* context,
                           std::function<void(const QString&)> chosen)
{
    if (m_dialog && m_dialog->isVisible()) {
        m_dialog->raise();
        m_dialog->activateWindow();
        return;
    }
    m_dialog = new QFileDialog(nullptr, question.message, beginningFolder(question.folder));
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    m_dialog->setFileMode(QFileDialog::Directory);
    m_dialog->setOption(QFileDialog::ShowDirsOnly);
    if (!question.prompt.isEmpty())
        m_dialog->setLabelText(QFileDialog::Accept, question.prompt);
    QObject::connect(m_dialog, &QFileDialog::fileSelected, context, std::move(chosen));
    QObject::connect(context, &QObject::destroyed, m_dialog, &QWidget::close);
    if (parent) {
        m_dialog->winId(); // makes the window that belongs to the other
        m_dialog->windowHandle()->setTransientParent(parent);
        m_dialog->setWindowModality(Qt::WindowModal);
    }
    m_dialog->open();
}

} // namespace jotwell
