// Qt 6.8 and later write "Could not find accessible on path" on standard error when a box closes
// while an assistive tool is there: the tool is told of the box's end, and asks about what has
// ended. Nothing but Qt: a box on the stack, closed by its button, twice.
//
// tests/qt-faults/run starts it where such a tool listens.
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window;
    window.show();
    QTimer::singleShot(1500, &window, [&window] {
        for (int i = 0; i < 2; ++i) {
            QMessageBox box(QMessageBox::Information, QStringLiteral("Box"), QStringLiteral("Text"),
                            QMessageBox::Ok, &window);
            QTimer::singleShot(1000, &box, &QDialog::accept);
            box.exec();
        }
        QTimer::singleShot(500, qApp, &QCoreApplication::quit);
    });
    return QApplication::exec();
}
