// The least program of Quor's kind: the empty window with one entry in each of its bars. Its
// distance to the empty window is the price of the first text, the first menu and the first tool,
// which the toolkit asks of every program that has them; its distance to Quor is Quor's own.

#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

using namespace Qt::StringLiterals;

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QMdiArea(&window));
    window.menuBar()->addMenu(u"Menu"_s);
    window.addToolBar(u"Bar"_s)->addAction(u"Tool"_s);
    window.statusBar()->showMessage(u"Status"_s);
    window.resize(1080, 760);
    window.show();
    return QApplication::exec();
}
