#include "accessibility/TestWindowFaults.h"

#include "accessibility/WindowFaults.h"
#include "toolkit/PictureBox.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// A small dialog in one column, to which a test adds what is wrong.
class Sample : public QDialog {
  public:
    Sample() {
        setWindowTitle(u"Prova"_s);
        column->addWidget(label);
        column->addWidget(name);
        column->addWidget(ok);
        label->setBuddy(name);
        name->setObjectName(u"name"_s);
        ok->setObjectName(u"ok"_s);
        name->setFocus();
    }

    void open() {
        show();
        activateWindow();
        QCoreApplication::processEvents();
    }

    QVBoxLayout* column = new QVBoxLayout(this);
    QLabel* label = new QLabel(u"&Nome:"_s);
    QLineEdit* name = new QLineEdit;
    QPushButton* ok = new QPushButton(u"&Ok"_s);
};

} // namespace

void TestWindowFaults::aGoodWindowHasNone() {
    Sample sample;
    sample.open();
    QCOMPARE((windowFaults(sample)).join(u"; "_s), QString());
}

void TestWindowFaults::missingNames() {
    Sample sample;
    sample.column->addWidget(new QLineEdit);
    sample.column->addWidget(new QPushButton);
    sample.open();
    QCOMPARE(nameFaults(sample), (QStringList{u"no name: QLineEdit"_s, u"no name: QPushButton"_s}));
}

void TestWindowFaults::picturesNeedNames() {
    Sample sample;
    auto* picture = new PictureBox;
    sample.column->addWidget(picture);
    sample.open();
    QCOMPARE(nameFaults(sample), QStringList(u"no name: quor::PictureBox"_s));
    picture->setAccessibleName(u"Grafico"_s);
    QCOMPARE((nameFaults(sample)).join(u"; "_s), QString());
}

void TestWindowFaults::markup() {
    Sample sample;
    sample.name->setToolTip(u"<p>Il nome</p>"_s);
    sample.open();
    QCOMPARE(nameFaults(sample), QStringList(u"described with markup: QLineEdit name"_s));
    sample.name->setAccessibleDescription(u"Il nome"_s);
    QCOMPARE(nameFaults(sample), QStringList());
}

void TestWindowFaults::listsAreNotNamedByTheirChoice() {
    Sample sample;
    auto* list = new QComboBox;
    list->addItem(u"Alto"_s);
    sample.column->addWidget(list);
    sample.open();
    QCOMPARE(nameFaults(sample), QStringList(u"no name: QComboBox"_s));
}

void TestWindowFaults::sharedAccessKeys() {
    Sample sample;
    sample.column->addWidget(new QPushButton(u"N&o"_s));
    sample.open();
    const QString clash = u"O: &Ok | N&o"_s;
    QCOMPARE(accessKeyFaults(sample), QStringList(u"shared access key "_s + clash));
    QCOMPARE((accessKeyFaults(sample, {clash})).join(u"; "_s), QString());
}

void TestWindowFaults::labelsWithoutAControl() {
    Sample sample;
    sample.label->setBuddy(nullptr);
    sample.name->setAccessibleName(u"Nome"_s);
    sample.open();
    QCOMPARE(accessKeyFaults(sample), QStringList(u"access key without a control: &Nome:"_s));
}

void TestWindowFaults::menus() {
    QAction first(u"&Apri"_s);
    QAction second(u"Sa&lva"_s);
    QAction third(u"Ch&iudi && salv&a"_s);
    QAction fourth(u"Altr&a"_s);
    QAction nameless;
    nameless.setObjectName(u"mnuVuoto"_s);
    QCOMPARE((menuFaults({&first, &second, &third})).join(u"; "_s), QString());
    QCOMPARE(menuFaults({&first, &fourth, &nameless}),
             (QStringList{u"entry without a text: mnuVuoto"_s,
                          u"shared access key A: &Apri | Altr&a"_s}));
}

void TestWindowFaults::unreachable() {
    Sample sample;
    sample.ok->setFocusPolicy(Qt::TabFocus);
    auto* other = new QPushButton(u"Altro"_s);
    sample.column->addWidget(other);
    // A control that the chain leads past.
    sample.ok->setFocusProxy(other);
    auto* lost = new QPushButton(u"Perso"_s);
    lost->setObjectName(u"lost"_s);
    sample.column->addWidget(lost);
    sample.open();
    lost->installEventFilter(this);
    QCOMPARE((tabFaults(sample)).join(u"; "_s), QString());
    // Whoever gets the keyboard and hands it on is not reached.
    connect(qApp, &QApplication::focusChanged, &sample, [&](QWidget*, QWidget* now) {
        if (now == lost) {
            sample.name->setFocus();
        }
    });
    QCOMPARE(tabFaults(sample), QStringList(u"tab does not reach QPushButton lost"_s));
}

void TestWindowFaults::trapped() {
    Sample sample;
    auto* text = new QPlainTextEdit;
    text->setObjectName(u"text"_s);
    sample.column->insertWidget(2, text);
    QWidget::setTabOrder(sample.name, text);
    QWidget::setTabOrder(text, sample.ok);
    sample.open();
    QCOMPARE(tabFaults(sample), QStringList(u"tab does not reach QPushButton ok"_s));
    text->setTabChangesFocus(true);
    sample.name->setFocus();
    QCOMPARE((tabFaults(sample)).join(u"; "_s), QString());
}

void TestWindowFaults::againstTheOrderOfReading() {
    Sample sample;
    auto* last = new QPushButton(u"Ultimo"_s);
    last->setObjectName(u"last"_s);
    sample.column->addWidget(last);
    QWidget::setTabOrder(sample.name, last);
    QWidget::setTabOrder(last, sample.ok);
    sample.open();
    QCOMPARE(tabFaults(sample), QStringList(u"tab jumps back: QPushButton last -> QPushButton ok, "
                                            "QPushButton ok -> QLineEdit name"_s));
}

void TestWindowFaults::columnsAreInOrder() {
    QDialog dialog;
    auto* row = new QHBoxLayout(&dialog);
    for (int column = 0; column < 2; ++column) {
        auto* layout = new QVBoxLayout;
        row->addLayout(layout);
        for (int i = 0; i < 3; ++i) {
            layout->addWidget(new QPushButton(u"%1"_s.arg(3 * column + i)));
        }
    }
    dialog.show();
    dialog.activateWindow();
    QCoreApplication::processEvents();
    dialog.findChild<QPushButton*>()->setFocus();
    QCOMPARE((tabFaults(dialog)).join(u"; "_s), QString());
}

void TestWindowFaults::firstFocus() {
    Sample sample;
    auto* help = new QPushButton(u"&?"_s);
    sample.column->addWidget(help);
    sample.open();
    QCOMPARE((tabFaults(sample)).join(u"; "_s), QString());
    help->setFocus();
    QCOMPARE(tabFaults(sample), QStringList(u"the keyboard is on the help button at first"_s));
    help->clearFocus();
    QCOMPARE(tabFaults(sample), QStringList(u"the keyboard is not in the window"_s));
}

void TestWindowFaults::missingTitle() {
    Sample sample;
    sample.setWindowTitle({});
    sample.open();
    QCOMPARE(windowFaults(sample), QStringList(u"no title"_s));
}

} // namespace quor::test
