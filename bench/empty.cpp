// The floor under any start: an empty main window of the size of Quor's.

#include <QApplication>
#include <QMainWindow>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1080, 760);
    window.show();
    return QApplication::exec();
}
