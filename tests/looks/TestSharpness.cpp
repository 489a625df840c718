#include "looks/TestSharpness.h"

#include "toolkit/Dialogs.h"
#include "toolkit/DrawingPainter.h"
#include "toolkit/IconLabel.h"
#include "toolkit/ImageList.h"
#include "toolkit/PictureBox.h"

#include "accessibility/EveryWindow.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QStyle>
#include <QSvgRenderer>
#include <QTimer>
#include <QToolBar>
#include <QTreeView>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

qreal wantedScale() {
    const QByteArray scale = qgetenv("QUOR_TEST_SCALE");
    return scale.isEmpty() ? 1.0 : scale.toDouble();
}

/// The window of this class, opened.
QWidget* open(WindowScene& scene, const char* className) {
    const auto& all = everyWindow();
    const auto found = std::find_if(all.begin(), all.end(), [className](const WindowEntry& entry) {
        return qstrcmp(entry.className, className) == 0;
    });
    return found == all.end() ? nullptr : showWindow(*found, scene);
}

/// A picture of the program rendered from its source for so many pixels of the screen.
QImage fromSource(const QString& name, QSize pixels, const QColor& line, const QColor& ground) {
    QFile file(u":/pictures/%1.svg"_s.arg(name));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QByteArray svg = file.readAll();
    svg.replace("currentColor", line.name().toLatin1());
    QImage image(pixels, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    QSvgRenderer(svg).render(&painter);
    return image;
}

/// The mean distance of two pictures' pixels, 0 to 255.
double distance(const QImage& one, const QImage& other) {
    double sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            sum += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y)));
        }
    }
    return sum / (one.width() * one.height());
}

/// The distance of a picture to the place of what is shown where it fits best.
double leastDistance(const QImage& shown, const QImage& wanted) {
    double least = 255;
    for (int y = 0; y + wanted.height() <= shown.height(); ++y) {
        for (int x = 0; x + wanted.width() <= shown.width(); ++x) {
            least = std::min(least, distance(shown.copy({{x, y}, wanted.size()}), wanted));
        }
    }
    return least;
}

/// What a control shows around a picture that it holds.
struct Holder {
    QString picture;
    QImage shown;
    QSize size; ///< of the picture, in pixels of the window
};

using Hold = Holder (*)(WindowScene&);

QImage grabbed(QWidget* widget, const QRect& part) {
    return widget->grab(part).toImage().convertToFormat(QImage::Format_RGB32);
}

Holder toolbarHolder(WindowScene& scene) {
    auto* bar = scene.frame.findChild<QToolBar*>();
    const QRect part = bar->actionGeometry(bar->findChild<QAction*>(u"NuovoBioritmo"_s));
    return {u"NuovoBioritmo"_s, grabbed(bar, part), bar->iconSize()};
}

Holder buttonHolder(WindowScene& scene) {
    scene.enterSystem();
    auto* button = scene.open<FProj>()->findChild<QAbstractButton*>(u"Command5"_s);
    return {u"Grafico"_s, grabbed(button, button->rect()), button->iconSize()};
}

Holder treeHolder(WindowScene& scene) {
    scene.enterSystem();
    auto* tree = scene.open<FProj>()->findChild<QTreeView*>();
    tree->clearSelection();
    tree->setCurrentIndex({});
    const QRect row = tree->visualRect(tree->model()->index(0, 0));
    const int side = tree->style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, tree);
    const QRect part(row.topLeft(), QSize(2 * side, row.height()));
    return {u"Persona"_s, grabbed(tree->viewport(), part), {side, side}};
}

Holder menuHolder(WindowScene& scene) {
    QMenu menu(&scene.frame);
    QAction* action = menu.addAction(picture(u"ImmGrafico"_s), u"Grafico"_s);
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    const int side = menu.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &menu);
    QRect part = menu.actionGeometry(action);
    part.setWidth(3 * side);
    return {u"Grafico"_s, grabbed(&menu, part), {side, side}};
}

} // namespace

void TestSharpness::scaleIsThat() {
    QWidget window;
    QCOMPARE(window.devicePixelRatioF(), wantedScale());
}

/// The pictures of the views hold each pixel of the screen as painting on it directly gives it.
void TestSharpness::drawings() {
    for (const char* name : {"quor::FGrph", "quor::FGrphSet", "quor::FGrphMed", "quor::FComp"}) {
        WindowScene scene;
        QWidget* window = open(scene, name);
        QVERIFY(window != nullptr);
        const auto boxes = window->findChildren<PictureBox*>();
        QVERIFY(!boxes.isEmpty());
        for (PictureBox* box : boxes) {
            const QImage shown = box->grab().toImage().convertToFormat(QImage::Format_RGB32);
            QImage direct((QSizeF(box->size()) * wantedScale()).toSize(), QImage::Format_RGB32);
            direct.setDevicePixelRatio(wantedScale());
            direct.fill(Qt::white);
            {
                QPainter painter(&direct);
                painter.setFont(box->font());
                paint(painter, box->drawing());
            }
            QCOMPARE(shown.size(), direct.size());
            QCOMPARE(shown.devicePixelRatio(), wantedScale());
            QVERIFY2(distance(shown, direct) < 0.01, name);
        }
    }
}

void TestSharpness::pictures_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"Grafico", "NuovoBioritmo", "Opzioni", "FrecciaSu", "quor"}) {
        QTest::newRow(name) << QString::fromLatin1(name);
    }
}

/// What is shown of a picture is nearer to one made for the screen than to a magnified one.
void TestSharpness::pictures() {
    QFETCH(QString, name);
    constexpr QSize size(24, 24);
    const QIcon icon = name == u"quor"_s ? emblem() : picture(u"Imm"_s + name);
    IconLabel label;
    label.setIcon(icon, size);
    label.resize(size);
    const QImage shown = label.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QColor line = QApplication::palette().color(QPalette::WindowText);
    const QColor ground = label.palette().color(QPalette::Window);
    const QSize pixels = (QSizeF(size) * wantedScale()).toSize();
    QCOMPARE(shown.size(), pixels);
    const double toSharp = distance(shown, fromSource(name, pixels, line, ground));
    QVERIFY2(toSharp < 0.5, qPrintable(QString::number(toSharp)));
    if (wantedScale() > 1) {
        const QImage magnified =
            fromSource(name, size, line, ground)
                .scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        const double toBlurred = distance(shown, magnified);
        QVERIFY2(toBlurred > 4 * toSharp + 1, qPrintable(QString::number(toBlurred)));
    }
}

void TestSharpness::controls_data() {
    QTest::addColumn<Hold>("hold");
    QTest::newRow("toolbar") << &toolbarHolder;
    QTest::newRow("button") << &buttonHolder;
    QTest::newRow("tree") << &treeHolder;
    QTest::newRow("menu") << &menuHolder;
}

/// Where Qt itself asks for the pixels of a picture, they are those of the screen too.
void TestSharpness::controls() {
    QFETCH(Hold, hold);
    WindowScene scene;
    scene.frame.show();
    const Holder holder = hold(scene);
    const QSize pixels = (QSizeF(holder.size) * wantedScale()).toSize();
    const QColor line = scene.frame.palette().color(QPalette::WindowText);
    const QColor ground = holder.shown.pixelColor(pixels.width() / 8, pixels.height() / 8);
    const QImage sharp = fromSource(holder.picture, pixels, line, ground);
    const QImage magnified = fromSource(holder.picture, holder.size, line, ground)
                                 .scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const double toSharp = leastDistance(holder.shown, sharp);
    const double toBlurred = leastDistance(holder.shown, magnified);
    // The ground may be shaded, and so adds to both.
    QVERIFY2(toSharp < 5, qPrintable(QString::number(toSharp)));
    if (wantedScale() > 1) {
        QVERIFY2(toBlurred > 3 * toSharp + 1, qPrintable(QString::number(toBlurred)));
    }
}

void TestSharpness::boxes_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("name");
    const auto add = [](BoxKind kind, const char* name) {
        QTest::newRow(name) << static_cast<int>(kind) << QString::fromLatin1(name);
    };
    add(BoxKind::information, "Informazione");
    add(BoxKind::warning, "Avviso");
    add(BoxKind::error, "Errore");
    add(BoxKind::question, "Domanda");
}

void TestSharpness::boxes() {
    QFETCH(int, kind);
    QFETCH(QString, name);
    QImage shown;
    QTimer::singleShot(0, this, [&shown] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(box != nullptr);
        for (QLabel* label : box->findChildren<QLabel*>()) {
            if (!label->pixmap(Qt::ReturnByValue).isNull()) {
                shown = label->grab().toImage().convertToFormat(QImage::Format_RGB32);
            }
        }
        box->reject();
    });
    QWidget parent;
    dialogHost().message(&parent, {static_cast<BoxKind>(kind), u"Anna"_s, u"Prova"_s});
    QVERIFY(!shown.isNull());
    const QColor ground = parent.palette().color(QPalette::Window);
    const double toSharp = distance(shown, fromSource(name, shown.size(), Qt::black, ground));
    QVERIFY2(toSharp < 0.5, qPrintable(QString::number(toSharp)));
}

} // namespace quor::test
