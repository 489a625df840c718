#include "shell/TestFramePlace.h"

#include "shell/FrameFixture.h"

#include "shell/Folders.h"
#include "shell/FramePlace.h"
#include "shell/StateFile.h"

#include <QScreen>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// Frames one after another, as in one run after another of a program.
class Runs {
  public:
    /// Starts the program, does something with its frame, ends it.
    void run(const std::function<void(MDIForm1&)>& use) {
        Program program;
        MDIForm1 frame(program, m_folder.path());
        use(frame);
    }

  private:
    OwnStateHome m_stateHome;
    QTemporaryDir m_folder;
};

QRect screenArea() {
    return QGuiApplication::primaryScreen()->availableGeometry();
}

QSize firstSize() {
    return QSize(1080, 760).boundedTo(screenArea().size());
}

QByteArray placeOf(QRect geometry) {
    QWidget widget;
    widget.setGeometry(geometry);
    return widget.saveGeometry();
}

} // namespace

void TestFramePlace::theFirstStart() {
    Runs runs;
    runs.run([](MDIForm1& frame) { QCOMPARE(frame.size(), firstSize()); });
}

void TestFramePlace::aFrameComesBackWhereItWas() {
    Runs runs;
    const QRect place(70, 90, 640, 480);
    runs.run([&place](MDIForm1& frame) {
        frame.show();
        frame.setGeometry(place);
    });
    for (int again = 0; again < 3; ++again) { // and does not wander
        runs.run([&place](MDIForm1& frame) {
            QCOMPARE(frame.geometry(), place); // before it is shown
            frame.show();
            QCOMPARE(frame.geometry(), place);
        });
    }
}

void TestFramePlace::aMaximisedFrame() {
    Runs runs;
    const QRect place(70, 90, 640, 480);
    runs.run([&place](MDIForm1& frame) {
        frame.setGeometry(place);
        frame.show();
        frame.showMaximized();
    });
    runs.run([&place](MDIForm1& frame) {
        frame.show();
        QVERIFY(frame.isMaximized());
        frame.showNormal();
        QCOMPARE(frame.geometry(), place);
    });
    runs.run([](MDIForm1& frame) { QVERIFY(!frame.isMaximized()); });
}

void TestFramePlace::aFrameThatWasNeverShown() {
    Runs runs;
    runs.run([](MDIForm1& frame) { frame.resize(500, 400); });
    runs.run([](MDIForm1& frame) { QCOMPARE(frame.size(), firstSize()); });
    QVERIFY(StateFile(stateFolder()).framePlace().isEmpty());
}

void TestFramePlace::beyondTheScreen() {
    Runs runs;
    for (const QPoint corner :
         {QPoint(5000, 5000), QPoint(-5000, 100), QPoint(100, -5000), QPoint(-30000, -30000)}) {
        StateFile(stateFolder()).saveFramePlace(placeOf({corner, QSize(640, 480)}));
        runs.run([](MDIForm1& frame) {
            frame.show();
            QVERIFY(screenArea().contains(frame.geometry()));
        });
    }
}

void TestFramePlace::damagedPlaces_data() {
    QTest::addColumn<QByteArray>("place");
    const QByteArray sound = placeOf({70, 90, 640, 480});
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("text") << QByteArray("70,90,640,480");
    QTest::newRow("cut") << sound.first(7);
    QTest::newRow("cut at its end") << sound.first(sound.size() - 1);
    QTest::newRow("too long") << sound + 'x';
    QTest::newRow("hardly to be seen") << placeOf({70, 90, 20, 10});
    QByteArray magic = sound;
    magic[0] = 'x';
    QTest::newRow("another beginning") << magic;
    QByteArray version = sound;
    version[5] = 99;
    QTest::newRow("a later version") << version;
}

void TestFramePlace::damagedPlaces() {
    QFETCH(QByteArray, place);
    Runs runs;
    StateFile(stateFolder()).saveFramePlace(place);
    runs.run([](MDIForm1& frame) {
        QCOMPARE(frame.size(), firstSize());
        frame.show();
        QVERIFY(frame.isVisible() && !frame.isMaximized() && !frame.isFullScreen());
    });
    // Numbers that are none: whatever comes of them is on the screen and can be seen.
    QByteArray numbers = placeOf({70, 90, 640, 480});
    for (qsizetype i = 8; i < 40; ++i) {
        numbers[i] = static_cast<char>(i % 2 == 0 ? 0x7f : 0xff);
    }
    StateFile(stateFolder()).saveFramePlace(numbers);
    runs.run([](MDIForm1& frame) {
        frame.show();
        QVERIFY(screenArea().intersects(frame.geometry()));
        QVERIFY(frame.width() > 100 && frame.height() > 100);
    });
}

} // namespace quor::test
