#include "toolkit/TestItemChoice.h"

#include "toolkit/ItemChoice.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QListWidget>
#include <QTest>
#include <QTreeWidget>

#include <array>
#include <functional>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// What assistive tools do with an item, counted as they count: row after row, open branches too.
void selectByTool(QWidget& view, int item) {
    QAccessible::queryAccessibleInterface(&view)->child(item)->actionInterface()->doAction(
        QAccessibleActionInterface::toggleAction());
    QCoreApplication::processEvents();
}

/// Rows that were chosen.
template<typename View> struct Chosen : QList<int> {
    explicit Chosen(View& view) {
        whenChosenByTool(view, [this](const QModelIndex& item) { *this << item.row(); });
        view.show();
        QTest::qWait(0); // until it has the focus, which makes its first item the current one
        QCoreApplication::processEvents();
    }
};

} // namespace

void TestItemChoice::toolsChoose() {
    QListWidget list;
    list.addItems({u"uno"_s, u"due"_s, u"tre"_s});
    const Chosen chosen(list);
    selectByTool(list, 2);
    selectByTool(list, 0);
    QCOMPARE(chosen, (QList<int>{2, 0}));
    selectByTool(list, 0); // takes the selection away
    QCOMPARE(chosen.size(), 2);
}

void TestItemChoice::handsDoNot() {
    QListWidget list;
    list.addItems({u"uno"_s, u"due"_s, u"tre"_s});
    const Chosen chosen(list);
    const std::array<std::function<void()>, 4> actions{
        [&] { QTest::keyClick(&list, Qt::Key_Down); },
        [&] {
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                              list.visualItemRect(list.item(2)).center());
        },
        [&] { list.setCurrentRow(0); }, [&] { list.setCurrentIndex({}); }};
    for (const auto& action : actions) {
        action();
        QCoreApplication::processEvents();
    }
    QCOMPARE(chosen, QList<int>());
}

void TestItemChoice::inATreeTheItemItself() {
    QTreeWidget tree;
    for (const QString& name : {u"uno"_s, u"due"_s}) {
        auto* branch = new QTreeWidgetItem(&tree, {name});
        new QTreeWidgetItem(branch, {u"primo"_s});
        new QTreeWidgetItem(branch, {u"secondo"_s});
    }
    tree.expandAll();
    tree.setHeaderHidden(true);
    selectItemsByTool(tree);
    tree.show();
    QWidget& view = tree;
    for (int item = 0; item < 6; ++item) {
        selectByTool(view, item + 1); // after the header
        QCOMPARE(tree.selectedItems().size(), 1);
        QCOMPARE(
            tree.selectedItems().constFirst()->text(0),
            (QStringList{u"uno"_s, u"primo"_s, u"secondo"_s, u"due"_s, u"primo"_s, u"secondo"_s})
                .at(item));
    }
}

void TestItemChoice::inADropDownList() {
    QComboBox list;
    list.addItems({u"uno"_s, u"due"_s, u"tre"_s});
    chooseByTool(list);
    list.show();
    selectByTool(*list.view(), 2);
    QCOMPARE(list.currentIndex(), 2);

    list.showPopup();
    QCoreApplication::processEvents();
    selectByTool(*list.view(), 1);
    QCOMPARE(list.currentIndex(), 1);
    QVERIFY(!list.view()->isVisible());

    // What the keyboard passes on its way is not chosen yet.
    list.showPopup();
    QTest::keyClick(list.view(), Qt::Key_Up);
    QCoreApplication::processEvents();
    QCOMPARE(list.view()->currentIndex().row(), 0);
    QCOMPARE(list.currentIndex(), 1);
    list.hidePopup();
}

} // namespace quor::test
