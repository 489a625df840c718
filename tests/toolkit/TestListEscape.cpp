#include "toolkit/TestListEscape.h"

#include "toolkit/qt/ListEscape.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QMenu>
#include <QVBoxLayout>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// A dialog that has the keyboard, also while something pops up above it, as on Wayland.
struct Form {
    Form() {
        list->addItems({u"Alto"_s, u"Basso"_s});
        dialog.setLayout(new QVBoxLayout);
        dialog.layout()->addWidget(list);
        qApp->installEventFilter(&filter);
        dialog.show();
    }

    void pressEscape() const { QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape); }

    qt::ListEscape filter;
    QDialog dialog;
    QComboBox* list = new QComboBox;
};

} // namespace

void TestListEscape::closesOnlyTheList() {
    const Form form;
    for (int i = 0; i < 2; ++i) {
        form.list->showPopup();
        QVERIFY(form.list->view()->isVisible());
        form.pressEscape();
        QTRY_VERIFY(!form.list->view()->isVisible());
        QVERIFY(form.dialog.isVisible());
    }
    form.pressEscape();
    QVERIFY(!form.dialog.isVisible());
}

/// A menu closes by the key itself, which is left to it.
void TestListEscape::closesMenuInDialog() {
    const Form form;
    QMenu menu;
    menu.addAction(u"Opzioni"_s);
    menu.popup(form.dialog.pos());
    QVERIFY(menu.isVisible());
    form.pressEscape();
    QVERIFY(!menu.isVisible());
    QVERIFY(form.dialog.isVisible());
    form.pressEscape();
    QVERIFY(!form.dialog.isVisible());
}

} // namespace quor::test
