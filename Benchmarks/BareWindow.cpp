// The least that a window on this toolkit costs: what the installer's figures are held against.
#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window;
    window.resize(640, 580);
    QLabel label(QStringLiteral("A window with one line of text."), &window);
    window.show();
    return QApplication::exec();
}
