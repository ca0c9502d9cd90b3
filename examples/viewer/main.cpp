// catalog-viewer [FILE]: shows a catalog as an inspector meets it.
#include "MainWindow.h"

#include <QApplication>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    MainWindow window;
    window.show();
    if (application.arguments().size() > 1)
        window.openFile(application.arguments().at(1));
    return QApplication::exec();
}
