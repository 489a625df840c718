#include "TestFAbout.h"

#include "HelpProbe.h"
#include "guidance/FAbout.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quor::test {

void TestFAbout::showsNameVersionAndLicence() {
    const FAbout window(u"7.8.9"_s);
    QCOMPARE(window.windowTitle(), u"About"_s);
    QString text;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        text += label->text() + u'\n';
    }
    for (const QString& expected : {u"Quor"_s, u"7.8.9"_s, u"bioritmi"_s, u"MIT"_s}) {
        QVERIFY2(text.contains(expected), qPrintable(expected));
    }
    QVERIFY(!window.findChild<QLabel*>(u"Image1"_s)->pixmap(Qt::ReturnByValue).isNull());
}

void TestFAbout::contactsOpenTheirPage() {
    const HelpProbe help;
    FAbout window(u"1"_s);
    window.open();
    auto* button = window.findChild<QPushButton*>(u"Command2"_s);
    QCOMPARE(button->text(), u"&Contatti"_s);
    button->click();
    QCOMPARE(help.pages, QStringList{u"contatti.html"_s});
    QVERIFY(window.isVisible());
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.close();
}

void TestFAbout::okCloses() {
    const QPointer window = new FAbout(u"1"_s);
    window->open();
    window->findChild<QPushButton*>(u"Command1"_s)->click();
    QTRY_VERIFY(window.isNull());
}

} // namespace quor::test
