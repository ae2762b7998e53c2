// The least window program of the toolkit: what every figure of a whole program is measured against.

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget window;
    window.resize(340, 260);
    window.show();
    return QApplication::exec();
}
