#include "looks/TestLookFaults.h"

#include "toolkit/PictureBox.h"

#include "looks/Desktop.h"
#include "looks/LookFaults.h"

#include <QComboBox>
#include <QDialog>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// A small dialog in one column, to which a test adds what is wrong.
class Sample : public QDialog {
  public:
    Sample() {
        column->addWidget(label);
        column->addWidget(ok);
        label->setObjectName(u"label"_s);
        ok->setObjectName(u"ok"_s);
    }

    void open() {
        show();
        QCoreApplication::processEvents();
    }

    QVBoxLayout* column = new QVBoxLayout(this);
    QLabel* label = new QLabel(u"Prossimo massimo:"_s);
    QPushButton* ok = new QPushButton(u"&Ok, va bene"_s);
};

QString all(QWidget& window) {
    return (cutFaults(window) + overlapFaults(window) + contrastFaults(window) +
            pictureFaults(window))
        .join(u"; "_s);
}

} // namespace

void TestLookFaults::init() {
    setDesktop({});
}

void TestLookFaults::cleanup() {
    setDesktop({});
}

void TestLookFaults::contrasts() {
    QCOMPARE(contrast(Qt::white, Qt::white), 1.0);
    QCOMPARE(contrast(Qt::white, Qt::black), 21.0);
    QVERIFY(std::abs(contrast(QColor(0x777777), Qt::white) - 4.478) < 0.001);
}

void TestLookFaults::aGoodWindowHasNone() {
    Sample sample;
    sample.open();
    QCOMPARE(all(sample), QString());
}

void TestLookFaults::squeezedControls() {
    Sample sample;
    sample.ok->setFixedWidth(40);
    sample.label->setFixedHeight(8);
    sample.open();
    const QString faults = cutFaults(sample).join(u"; "_s);
    QVERIFY2(faults.contains(u"QPushButton ok"_s), qPrintable(faults));
    QVERIFY2(faults.contains(u"QLabel label"_s), qPrintable(faults));
}

void TestLookFaults::wrappedLabels() {
    Sample sample;
    sample.label->setWordWrap(true);
    sample.open();
    QCOMPARE(cutFaults(sample).join(u"; "_s), QString());
    sample.label->setFixedSize(60, sample.fontMetrics().height()); // one line for two
    QCoreApplication::processEvents();
    QVERIFY(cutFaults(sample).join(u"; "_s).contains(u"QLabel label"_s));
}

void TestLookFaults::entriesAndLists() {
    Sample sample;
    auto* entry = new QLineEdit(u"mercoledì 24 marzo 2004"_s);
    entry->setFixedWidth(60);
    sample.column->addWidget(entry);
    auto* list = new QComboBox;
    list->addItem(u"Per pagina internet"_s);
    list->setFixedWidth(60);
    sample.column->addWidget(list);
    sample.open();
    const QString faults = cutFaults(sample).join(u"; "_s);
    QVERIFY2(faults.contains(u"\"mercoledì 24 marzo 2004\" is cut"_s), qPrintable(faults));
    QVERIFY2(faults.contains(u"\"Per pagina internet\" is cut"_s), qPrintable(faults));
}

void TestLookFaults::trees() {
    Sample sample;
    auto* tree = new QTreeWidget;
    tree->setHeaderHidden(true);
    auto* person = new QTreeWidgetItem(tree, {u"Anna"_s});
    auto* view = new QTreeWidgetItem(person, {u"Stato settimanale della persona in esame"_s});
    tree->expandAll();
    tree->setFixedWidth(120);
    sample.column->addWidget(tree);
    sample.open();
    QCOMPARE(cutFaults(sample).join(u"; "_s), u"\"%1\" is cut: QTreeWidget"_s.arg(view->text(0)));
}

void TestLookFaults::textsInPictures() {
    Sample sample;
    auto* picture = new PictureBox;
    picture->setFixedSize(200, 60);
    sample.column->addWidget(picture);
    sample.open();
    const auto faultsWith = [&](int x, int y) {
        Drawing drawing;
        drawing.add(Text{.topLeft = {0, 0}, .text = u"15"_s});
        drawing.add(Text{.topLeft = {x, y}, .text = u"16"_s});
        picture->setDrawing(drawing);
        return cutFaults(sample).join(u"; "_s);
    };
    QCOMPARE(faultsWith(40, 0), QString());
    QCOMPARE(faultsWith(5, 0), u"\"16\" touches \"15\": quor::PictureBox"_s);
    QCOMPARE(faultsWith(40, 55), u"\"16\" leaves the picture: quor::PictureBox"_s);
}

void TestLookFaults::overlaps() {
    Sample sample;
    auto* stray = new QLabel(u"Qui"_s, &sample);
    stray->setObjectName(u"stray"_s);
    sample.open();
    stray->setGeometry(sample.ok->geometry());
    QCOMPARE(overlapFaults(sample).join(u"; "_s), u"lies on QLabel stray: QPushButton ok"_s);
    stray->move(sample.width() - 5, sample.height());
    QCOMPARE(overlapFaults(sample).join(u"; "_s), u"reaches out of QDialog: QLabel stray"_s);
}

void TestLookFaults::sizes() {
    Sample sample;
    sample.label->setMinimumSize(900, 500);
    sample.open();
    QCOMPARE(sizeFaults(sample, {1366, 768}), QStringList());
    QCOMPARE(sizeFaults(sample, {800, 768}).size(), 1);
    QCOMPARE(sizeFaults(sample, {1366, 480}).size(), 1);
}

void TestLookFaults::paleTexts() {
    Sample sample;
    QPalette pale = sample.label->palette();
    pale.setColor(QPalette::WindowText, QColor(0xa0a0a0));
    sample.label->setPalette(pale);
    sample.open();
    const QString faults = contrastFaults(sample).join(u"; "_s);
    QVERIFY2(faults.startsWith(u"contrast 2."_s) && faults.endsWith(u"QLabel label"_s),
             qPrintable(faults));
    sample.label->setEnabled(false);
    QCOMPARE(contrastFaults(sample).join(u"; "_s), QString());
}

void TestLookFaults::darkPicturesOnDarkGround() {
    QPixmap pixmap(24, 24);
    pixmap.fill(Qt::transparent);
    {
        QPainter painter(&pixmap);
        painter.fillRect(4, 4, 16, 16, Qt::black);
    }
    for (const bool dark : {false, true}) {
        setDesktop({.dark = dark});
        Sample sample;
        auto* button = new QToolButton;
        button->setIconSize({24, 24});
        button->setIcon(QIcon(pixmap));
        sample.column->addWidget(button);
        sample.open();
        QCOMPARE(pictureFaults(sample).isEmpty(), !dark);
    }
}

} // namespace quor::test
