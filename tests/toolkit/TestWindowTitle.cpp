#include "toolkit/TestWindowTitle.h"

#include "toolkit/WindowTitle.h"

#include <QAccessible>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace quor::test {

/// Every name of up to six of these letters, in the title of a window of its own, of a window
/// inside a frame, and of a frame that names it as Qt names a maximised one.
void TestWindowTitle::everyLetterIsShown() {
    constexpr int longest = 6;
    const QString letters = u"[*]a"_s;
    QWidget frame;
    QWidget window;
    QMdiArea area;
    QWidget inner;
    QMdiSubWindow* subWindow = area.addSubWindow(&inner);
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(subWindow);
    for (QWidget* shown : {&frame, &window}) {
        shown->winId();
    }
    QStringList names{QString()};
    for (qsizetype i = 0; names.at(i).size() < longest; ++i) {
        for (const QChar letter : letters) {
            names << names.at(i) + letter;
        }
    }
    for (const QString& name : std::as_const(names)) {
        const QString title = u"Grafico di "_s + name;
        setTitle(window, title);
        QCOMPARE(window.windowHandle()->title(), title);
        QCOMPARE(titleOf(window), title);
        frame.setWindowTitle(u"Quor - [%1]"_s.arg(window.windowTitle()));
        QCOMPARE(frame.windowHandle()->title(), u"Quor - [%1]"_s.arg(title));
        setTitle(inner, title);
        QCOMPARE(spoken->text(QAccessible::Name), title);
    }
    QVERIFY(names.size() > 5000);
}

void TestWindowTitle::longTitlesAreCut() {
    QWidget window;
    setTitle(window, QString(1001, u'y'));
    QCOMPARE(window.windowTitle(), QString(1000, u'y') + u'…');
}

} // namespace quor::test
