#include "shell/TestChildArrangement.h"

#include "shell/ChildArrangement.h"

#include "support/Hermetic.h"

namespace quor::test {

void TestChildArrangement::wide_data() {
    QTest::addColumn<int>("count");
    QTest::addColumn<QList<QRect>>("places");
    QTest::newRow("none") << 0 << QList<QRect>{};
    QTest::newRow("one") << 1 << QList<QRect>{{0, 0, 600, 400}};
    QTest::newRow("two") << 2 << QList<QRect>{{0, 0, 600, 200}, {0, 200, 600, 200}};
    QTest::newRow("three") << 3
                           << QList<QRect>{
                                  {0, 0, 600, 133}, {0, 133, 600, 133}, {0, 266, 600, 134}};
    QTest::newRow("four") << 4
                          << QList<QRect>{{0, 0, 300, 200},
                                          {0, 200, 300, 200},
                                          {300, 0, 300, 200},
                                          {300, 200, 300, 200}};
    QTest::newRow("five") << 5
                          << QList<QRect>{{0, 0, 300, 200},
                                          {0, 200, 300, 200},
                                          {300, 0, 300, 133},
                                          {300, 133, 300, 133},
                                          {300, 266, 300, 134}};
}

void TestChildArrangement::wide() {
    QFETCH(int, count);
    QFETCH(QList<QRect>, places);
    QCOMPARE(tileHorizontally({600, 400}, count), places);
}

void TestChildArrangement::tall_data() {
    QTest::addColumn<int>("count");
    QTest::addColumn<QList<QRect>>("places");
    QTest::newRow("one") << 1 << QList<QRect>{{0, 0, 600, 400}};
    QTest::newRow("two") << 2 << QList<QRect>{{0, 0, 300, 400}, {300, 0, 300, 400}};
    QTest::newRow("three") << 3
                           << QList<QRect>{
                                  {0, 0, 200, 400}, {200, 0, 200, 400}, {400, 0, 200, 400}};
}

void TestChildArrangement::tall() {
    QFETCH(int, count);
    QFETCH(QList<QRect>, places);
    QCOMPARE(tileVertically({600, 400}, count), places);
}

void TestChildArrangement::icons() {
    QCOMPARE(arrangeIcons({400, 300}, {150, 30}, 3),
             (QList<QPoint>{{0, 270}, {150, 270}, {0, 240}}));
    QCOMPARE(arrangeIcons({100, 300}, {150, 30}, 2), (QList<QPoint>{{0, 270}, {0, 240}}));
    QCOMPARE(arrangeIcons({100, 300}, {150, 30}, 0), QList<QPoint>{});
}

void TestChildArrangement::everyPixelIsCovered() {
    for (int count = 1; count <= 40; ++count) {
        for (const auto& places :
             {tileHorizontally({997, 641}, count), tileVertically({997, 641}, count)}) {
            QCOMPARE(places.size(), count);
            int pixels = 0;
            for (const QRect& place : places) {
                QVERIFY(QRect(0, 0, 997, 641).contains(place));
                pixels += place.width() * place.height();
            }
            QCOMPARE(pixels, 997 * 641);
        }
    }
}

} // namespace quor::test
