#include "toolkit/TestPictures.h"

#include "toolkit/Commands.h"
#include "toolkit/ImageList.h"
#include "toolkit/PictureBox.h"

#include "support/Hermetic.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

QImage rendered(const QString& key, QIcon::Mode mode = QIcon::Normal) {
    return picture(key).pixmap(QSize(24, 24), 1.0, mode).toImage();
}

int greatestOpacity(const QImage& image) {
    int greatest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            greatest = std::max(greatest, qAlpha(image.pixel(x, y)));
        }
    }
    return greatest;
}

class RestoredPalette {
  public:
    ~RestoredPalette() { QApplication::setPalette(m_palette); }

  private:
    QPalette m_palette = QApplication::palette();
};

} // namespace

void TestPictures::everyToolHasAPicture() {
    for (const ToolInfo& info : toolTable()) {
        if (!info.isSeparator()) {
            for (const int size : {16, 24, 32}) {
                const QImage image = picture(u"Imm"_s + QString::fromLatin1(info.key))
                                         .pixmap(QSize(size, size), 1.0)
                                         .toImage();
                QCOMPARE(image.size(), QSize(size, size));
                QVERIFY2(greatestOpacity(image) > 200, info.key);
            }
        }
    }
    QVERIFY(greatestOpacity(rendered(u"ImmFrecciaSu"_s)) > 200);
    QVERIFY(greatestOpacity(rendered(u"ImmFrecciaGiu"_s)) > 200);
    QVERIFY(!emblem().isNull());
}

void TestPictures::unknownKeysHaveNone() {
    QVERIFY(picture(u"ImmNessuna"_s).isNull());
    QVERIFY(picture(u"Grafico"_s).isNull());
}

void TestPictures::picturesFollowThePalette() {
    const RestoredPalette restored;
    QPalette palette;
    palette.setColor(QPalette::WindowText, Qt::black);
    QApplication::setPalette(palette);
    const QImage dark = rendered(u"ImmStampa"_s);
    palette.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(palette);
    const QImage light = rendered(u"ImmStampa"_s);
    QVERIFY(dark != light);
    QCOMPARE(greatestOpacity(dark), greatestOpacity(light));
}

void TestPictures::disabledPicturesAreFaded() {
    const QImage disabled = rendered(u"ImmStampa"_s, QIcon::Disabled);
    QVERIFY(greatestOpacity(disabled) > 40);
    QVERIFY(greatestOpacity(disabled) < 120);
}

/// A window squeezed to nothing paints its title bar and its tabs all the same.
void TestPictures::picturesOfNoSizeAreEmpty() {
    for (const QSize size : {QSize(0, 24), QSize(24, 0), QSize(0, 0), QSize(-3, -3)}) {
        QVERIFY(emblem().pixmap(size, 1.0).isNull());
        QImage sheet(10, 10, QImage::Format_ARGB32);
        sheet.fill(Qt::white);
        const QImage before = sheet;
        QPainter painter(&sheet);
        emblem().paint(&painter, QRect(QPoint(2, 2), size));
        painter.end();
        QCOMPARE(sheet, before);
    }
}

void TestPictures::theSheetIsWhiteAndSharp() {
    const RestoredPalette restored;
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::black);
    palette.setColor(QPalette::Base, Qt::black);
    QApplication::setPalette(palette);
    PictureBox box;
    box.resize(60, 40);
    Drawing drawing;
    drawing.add(FilledBox{.area = QRect(10, 10, 5, 5), .fill = 0x0000FF});
    box.setDrawing(drawing);
    QCOMPARE(box.drawing(), drawing);

    const QImage once = box.grab().toImage();
    QCOMPARE(once.pixelColor(1, 1), QColor(Qt::white));
    QCOMPARE(once.pixelColor(12, 12), QColor(Qt::red));

    box.setDrawing({});
    QCOMPARE(box.grab().toImage().pixelColor(12, 12), QColor(Qt::white));
}

} // namespace quor::test
