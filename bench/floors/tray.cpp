// F-tray: a status item and nothing else.
#include <QApplication>
#include <QPixmap>
#include <QSystemTrayIcon>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QPixmap pixmap(22, 22);
    pixmap.fill(Qt::black);
    QSystemTrayIcon item{QIcon(pixmap)};
    item.show();
    return QApplication::exec();
}
