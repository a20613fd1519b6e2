#include "Platform/qt/QtFolderPanel.h"

#include <QFileDialog>
#include <QWindow>

#include <utility>

namespace jotwell {

void QtFolderPanel::choose(const FolderQuestion& question, QWindow* parent, QObject* context,
                           std::function<void(const QString&)> chosen)
{
    auto* dialog = new QFileDialog(nullptr, question.message, question.folder);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    if (!question.prompt.isEmpty())
        dialog->setLabelText(QFileDialog::Accept, question.prompt);
    QObject::connect(dialog, &QFileDialog::fileSelected, context, std::move(chosen));
    QObject::connect(context, &QObject::destroyed, dialog, &QWidget::close);
    if (parent) {
        dialog->winId(); // makes the window that belongs to the other
        dialog->windowHandle()->setTransientParent(parent);
        dialog->setWindowModality(Qt::WindowModal);
    }
    dialog->open();
}

} // namespace jotwell
