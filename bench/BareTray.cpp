#include <QApplication>
#include <QPixmap>
#include <QSystemTrayIcon>

// The least that a Qt program with a tray item can be: the reference for Jotwell's start.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QPixmap picture(22, 22);
    picture.fill(Qt::black);
    QSystemTrayIcon item((QIcon(picture)));
    item.show();
    return QApplication::exec();
}
