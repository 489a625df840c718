#include "views/analysis/TestStateBars.h"

#include "views/analysis/StateBars.h"
#include "views/analysis/TrendArrow.h"

#include <QPainter>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

constexpr std::array<Colour, 4> colours{0xFF0000, 0x0000FF, 0x00FF00, 0x00FFFF};

DayState stateOf(const StateValues& today, const StateValues& yesterday) {
    return {.today = today, .yesterday = yesterday};
}

/// The picture of bars as a screen with that many pixels in a unit shows it.
QImage photograph(StateBars& bars, int ratio = 1) {
    QImage image(bars.size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(bars.palette().color(QPalette::Window));
    bars.render(&image);
    return image;
}

/// The smallest rectangle around all pixels of exactly this colour.
QRect areaOf(const QImage& image, QRgb colour) {
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if ((image.pixel(x, y) & 0xFFFFFF) == (colour & 0xFFFFFF)) {
                area = area.united(QRect(x, y, 1, 1));
            }
        }
    }
    return area;
}

constexpr QRgb blue = 0x0000FF;
constexpr QRgb red = 0xFF0000;
constexpr QRgb green = 0x00FF00;
constexpr QRgb yellow = 0xFFFF00;

} // namespace

void TestStateBars::barsHaveTheirColours() {
    StateBars bars;
    bars.resize(500, 300);
    bars.setState(stateOf({10, 10, 10, 10}, {}), colours);
    const QImage image = photograph(bars);
    const std::array areas{areaOf(image, blue), areaOf(image, red), areaOf(image, green),
                           areaOf(image, yellow)};
    for (std::size_t i = 0; i < areas.size(); ++i) {
        QVERIFY(!areas.at(i).isEmpty());
        QCOMPARE(areas.at(i).width(), areas.at(0).width());
        QCOMPARE(areas.at(i).top(), areas.at(0).top());
        QVERIFY(i == 0 || areas.at(i).left() > areas.at(i - 1).right());
    }
    bars.setState(stateOf({10, 10, 10, 10}, {}), {0x123456, 0, 0, 0});
    QVERIFY(!areaOf(photograph(bars), 0x563412).isEmpty());
}

void TestStateBars::barsStandAndHang() {
    StateBars bars;
    bars.resize(500, 300);
    bars.setState(stateOf({10, -10, 5, -5}, {}), colours);
    const QImage image = photograph(bars);
    const QRect up = areaOf(image, blue);
    const QRect down = areaOf(image, red);
    const QRect half = areaOf(image, green);
    const QRect halfDown = areaOf(image, yellow);
    // A border of one pixel on each side is not of the bar's own colour, and the zero line lies on
    // the first row of what hangs from it.
    QCOMPARE(up.bottom(), half.bottom());
    QCOMPARE(down.top(), halfDown.top());
    QVERIFY(down.top() > up.bottom() && down.top() - up.bottom() <= 4);
    QCOMPARE(up.height(), down.height());
    QCOMPARE(half.height(), halfDown.height());
    QVERIFY(std::abs(2 * half.height() - up.height()) <= 3);
    QVERIFY(up.height() > 50);
}

void TestStateBars::zeroHasNoBar() {
    StateBars bars;
    bars.resize(500, 300);
    bars.setState(stateOf({0, 0, 0, 0}, {}), colours);
    const QImage image = photograph(bars);
    for (const QRgb colour : {blue, red, green, yellow}) {
        QVERIFY(areaOf(image, colour).isEmpty());
    }
}

void TestStateBars::arrowsFollowTheTrend() {
    StateBars bars;
    bars.setState(stateOf({1, 2, 3, 4}, {0, 3, 3, 5}), colours);
    const std::array names{u"Stato fisico in salita"_s, u"Stato emotivo in discesa"_s,
                           u"Stato intellettivo in salita"_s, u"Media in discesa"_s};
    for (int i = 1; i <= 4; ++i) {
        const auto* arrow = bars.findChild<TrendArrow*>(u"Image1_%1"_s.arg(i));
        QVERIFY(arrow);
        QCOMPARE(arrow->accessibleName(), names.at(static_cast<std::size_t>(i) - 1));
        QCOMPARE(arrow->toolTip(), arrow->accessibleName());
    }
    // The pictures themselves differ, and equal trends have equal ones.
    bars.resize(500, 300);
    const auto shot = [&](int number) {
        return bars.findChild<TrendArrow*>(u"Image1_%1"_s.arg(number))->grab().toImage();
    };
    QVERIFY(shot(1) != shot(2));
    QCOMPARE(shot(1), shot(3));
    QCOMPARE(shot(2), shot(4));
    // The rising arrow's head is at its upper right: more ink above the middle than below.
    const auto ink = [](const QImage& image, int fromRow, int toRow) {
        int pixels = 0;
        for (int y = fromRow; y < toRow; ++y) {
            for (int x = image.width() / 2; x < image.width(); ++x) {
                pixels += image.pixel(x, y) != image.pixel(0, 0) ? 1 : 0;
            }
        }
        return pixels;
    };
    const int middle = shot(1).height() / 2;
    QVERIFY(ink(shot(1), 0, middle) > ink(shot(2), 0, middle));
}

void TestStateBars::arrowsStandBesideTheirBars() {
    StateBars bars;
    bars.setState(stateOf({10, 10, 10, 10}, {}), colours);
    for (const int width : {bars.sizeHint().width(), 500, 900}) {
        bars.resize(width, 300);
        const QImage image = photograph(bars);
        int number = 0;
        for (const QRgb colour : {blue, red, green, yellow}) {
            const QRect bar = areaOf(image, colour);
            const auto* arrow = bars.findChild<TrendArrow*>(u"Image1_%1"_s.arg(++number));
            QVERIFY(arrow->x() > bar.right());
            QVERIFY(arrow->x() - bar.right() < bar.width());
            QVERIFY(arrow->geometry().bottom() <= bar.bottom() + 2);
            QVERIFY(bars.rect().contains(arrow->geometry()));
        }
    }
}

void TestStateBars::scaleLinesShow() {
    StateBars bars;
    bars.resize(500, 300);
    bars.setState(stateOf({10, -10, 0, 0}, {}), colours);
    const QImage image = photograph(bars);
    const int x = areaOf(image, blue).left() - 8; // before the first bar, inside the plot
    const QRgb paper = bars.palette().color(QPalette::Base).rgb();
    std::vector<int> lines;
    for (int y = areaOf(image, blue).top() - 5; y < areaOf(image, red).bottom() + 5; ++y) {
        const bool onLine = image.pixel(x, y) != paper;
        const bool inside =
            y > areaOf(image, blue).top() - 2 && y < areaOf(image, red).bottom() + 3;
        if (onLine && inside) {
            lines.push_back(y);
        }
    }
    QCOMPARE(lines.size(), std::size_t{3});
    QCOMPARE(lines[2] - lines[1], lines[1] - lines[0]);
}

void TestStateBars::numbersAreReadOut() {
    StateBars bars;
    bars.setState(stateOf({-7.3, 2.5, 0, 10}, {}), colours);
    QCOMPARE(
        bars.accessibleDescription(),
        u"Fisico -7, in discesa; Emotivo 2, in salita; Intellettivo 0, in salita; Media 10, in salita"_s);
}

void TestStateBars::sharpAtTwoPixelsPerUnit() {
    StateBars bars;
    bars.resize(500, 301);
    bars.setState(stateOf({7.77, -3.33, 5.55, -8.88}, {}), colours);
    const QImage image = photograph(bars, 2);
    for (const QRgb colour : {blue, red, green, yellow}) {
        const QRect area = areaOf(image, colour);
        QVERIFY(!area.isEmpty());
        // Every pixel inside has the full colour: no edge was smeared over two rows or columns.
        int full = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                full += (image.pixel(x, y) & 0xFFFFFF) == colour ? 1 : 0;
            }
        }
        QCOMPARE(full, area.width() * area.height());
    }
    // The finer grid is used: some heights are odd, which no doubled ones would be.
    int odd = 0;
    for (int tenths = 50; tenths < 70; ++tenths) {
        bars.setState(stateOf({tenths / 10.0, 0, 0, 0}, {}), colours);
        odd += areaOf(photograph(bars, 2), blue).height() % 2;
    }
    QVERIFY(odd > 0);
}

void TestStateBars::followsThePalette() {
    StateBars bars;
    bars.resize(500, 300);
    bars.setState(stateOf({5, 5, 5, 5}, {}), colours);
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(0x20, 0x22, 0x24));
    dark.setColor(QPalette::Window, QColor(0x30, 0x32, 0x34));
    dark.setColor(QPalette::WindowText, Qt::white);
    bars.setPalette(dark);
    const QImage image = photograph(bars);
    QVERIFY(!areaOf(image, 0x202224).isEmpty());
    QVERIFY(!areaOf(image, 0xFFFFFF).isEmpty());
    QVERIFY(!areaOf(image, 0x7F7FFF).isEmpty()); // the blue bar's border is lighter than the bar
}

} // namespace quor::test
