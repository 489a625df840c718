#include "looks/LookFaults.h"

#include "toolkit/DrawingPainter.h"
#include "toolkit/IconLabel.h"
#include "toolkit/PictureBox.h"
#include "views/analysis/TrendArrow.h"

#include "accessibility/WindowFaults.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFontInfo>
#include <QGroupBox>
#include <QHash>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>
#include <QStyleOptionTab>
#include <QStyleOptionTitleBar>
#include <QTabBar>
#include <QTextEdit>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

// The guidelines' numbers: for texts, for large ones, for pictures.
constexpr double textContrast = 4.5;
constexpr double largeTextContrast = 3.0;
constexpr double pictureContrast = 3.0;
constexpr double largeText = 18; // points
/// The share of a picture's pixels that has to stand out: the rest are soft edges and accents.
constexpr double pictureShare = 0.3;
/// Steps of a colour channel below which two colours are the same to the eye.
constexpr int sameColour = 24;

QString sizeText(QSize size) {
    return u"%1x%2"_s.arg(size.width()).arg(size.height());
}

QString fault(const QString& what, const QWidget& widget) {
    return what + u": "_s + describe(widget);
}

/// The text without its access key's mark, as it is painted.
QString shown(QString text) {
    return text.replace(u"&&"_s, u"\v"_s).remove(u'&').replace(u'\v', u'&');
}

int textWidth(const QWidget& widget, const QString& text) {
    int widest = 0;
    for (const QString& line : text.split(u'\n')) {
        widest = std::max(widest, widget.fontMetrics().horizontalAdvance(shown(line)));
    }
    return widest;
}

/// A place where a text is painted.
struct TextPlace {
    QString text;
    QRect area; ///< pixels of the control
};

QStyleOptionGroupBox optionOf(const QGroupBox& group) {
    QStyleOptionGroupBox option;
    option.initFrom(&group);
    option.text = group.title();
    option.lineWidth = 1;
    option.textAlignment = Qt::AlignLeft;
    option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    return option;
}

QRect captionOf(const QGroupBox& group) {
    const QStyleOptionGroupBox option = optionOf(group);
    return group.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel,
                                         &group);
}

class TabBarSpy : public QTabBar {
  public:
    static QRect textOf(const QTabBar& bar, int tab) {
        QStyleOptionTab option;
        (bar.*&TabBarSpy::initStyleOption)(&option, tab);
        return bar.style()->subElementRect(QStyle::SE_TabBarTabText, &option, &bar);
    }
};

class ComboSpy : public QComboBox {
  public:
    static QRect fieldOf(const QComboBox& combo) {
        QStyleOptionComboBox option;
        (combo.*&ComboSpy::initStyleOption)(&option);
        return combo.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                             QStyle::SC_ComboBoxEditField, &combo);
    }
};

class ButtonSpy : public QPushButton {
  public:
    static QRect contentsOf(const QPushButton& button) {
        QStyleOptionButton option;
        (button.*&ButtonSpy::initStyleOption)(&option);
        return button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button);
    }
};

QRect contentsOfTick(const QAbstractButton& button, QStyle::SubElement element) {
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    return button.style()->subElementRect(element, &option, &button);
}

/// Where a button paints its text; nothing where it has none.
QList<TextPlace> textsOf(const QAbstractButton& button) {
    if (button.text().isEmpty()) {
        return {};
    }
    if (const auto* push = qobject_cast<const QPushButton*>(&button)) {
        return {{push->text(), ButtonSpy::contentsOf(*push)}};
    }
    if (qobject_cast<const QCheckBox*>(&button) != nullptr) {
        return {{button.text(), contentsOfTick(button, QStyle::SE_CheckBoxContents)}};
    }
    if (qobject_cast<const QRadioButton*>(&button) != nullptr) {
        return {{button.text(), contentsOfTick(button, QStyle::SE_RadioButtonContents)}};
    }
    if (const auto* tool = qobject_cast<const QToolButton*>(&button)) {
        if (tool->toolButtonStyle() == Qt::ToolButtonTextUnderIcon) {
            const int height = tool->fontMetrics().height();
            return {{tool->text(), tool->rect().adjusted(3, tool->height() - height - 4, -3, -4)}};
        }
    }
    return {};
}

QList<TextPlace> textsOf(const QAbstractItemView& view) {
    QList<TextPlace> places;
    const QAbstractItemModel* model = view.model();
    QModelIndex index = model != nullptr ? view.indexAt({2, 2}) : QModelIndex();
    while (index.isValid()) {
        const QRect area = view.visualRect(index);
        if (area.bottom() > view.viewport()->rect().bottom()) {
            break; // half a line at the lower edge is to be scrolled to
        }
        places << TextPlace{index.data().toString(),
                            area.intersected(view.viewport()->rect())
                                .translated(view.viewport()->mapTo(&view, QPoint()))};
        const auto* tree = qobject_cast<const QTreeView*>(&view);
        index = tree != nullptr ? tree->indexBelow(index) : index.siblingAtRow(index.row() + 1);
    }
    return places;
}

/// Where a control paints its texts.
QList<TextPlace> textsOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        const bool hasText = !label->text().isEmpty();
        return hasText ? QList<TextPlace>{{label->text(), label->contentsRect()}}
                       : QList<TextPlace>();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return textsOf(*button);
    }
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
        return {{group->title(), captionOf(*group)}};
    }
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
        return {{line->text(), line->rect().adjusted(3, 3, -3, -3)}};
    }
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        const bool chosen = combo->currentIndex() >= 0;
        return {
            {chosen ? combo->currentText() : combo->placeholderText(), ComboSpy::fieldOf(*combo)}};
    }
    if (const auto* bar = qobject_cast<const QMenuBar*>(&widget)) {
        QList<TextPlace> places;
        for (QAction* action : bar->actions()) {
            if (action->isEnabled() && (action->menu() == nullptr || action->menu()->isEnabled())) {
                places << TextPlace{action->text(), bar->actionGeometry(action)};
            }
        }
        return places;
    }
    if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
        QList<TextPlace> places;
        for (int i = 0; i < tabs->count(); ++i) {
            places << TextPlace{tabs->tabText(i), TabBarSpy::textOf(*tabs, i)};
        }
        return places;
    }
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget)) {
        return textsOf(*view);
    }
    if (const auto* text = qobject_cast<const QTextEdit*>(&widget)) {
        return {{text->toPlainText(), QRect(text->viewport()->mapTo(text, QPoint(4, 4)),
                                            text->viewport()->size() - QSize(8, 8))}};
    }
    return {};
}

QRect areaOf(const PictureBox& picture, const Text& text) {
    return {text.topLeft, QSize(picture.textWidth(text.text, text.bold), picture.textHeight())};
}

/// Texts of a picture that touch each other or leave it.
QStringList cutTexts(const PictureBox& picture) {
    QStringList faults;
    const Text* before = nullptr;
    for (const Primitive& primitive : picture.drawing().primitives) {
        const auto* text = std::get_if<Text>(&primitive);
        if (text == nullptr) {
            continue;
        }
        const QRect area = areaOf(picture, *text);
        if (!picture.rect().contains(area)) {
            faults << fault(u"\"%1\" leaves the picture"_s.arg(text->text), picture);
        }
        if (before != nullptr && areaOf(picture, *before).intersects(area)) {
            faults << fault(u"\"%1\" touches \"%2\""_s.arg(text->text, before->text), picture);
        }
        before = text;
    }
    return faults.mid(0, 1);
}

/// Sizes that a control may have by what it says of itself.
QStringList cutSize(const QWidget& widget) {
    QSize needed = widget.minimumSizeHint();
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        if (label->wordWrap()) {
            needed = {0, label->heightForWidth(label->width())};
        } else if (qobject_cast<const IconLabel*>(label) == nullptr) {
            needed = label->sizeHint();
        }
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        needed = button->text().isEmpty() ? needed : button->sizeHint();
    }
    // Who asks for no width of his own shortens his text, and has to tell the rest.
    if (widget.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored &&
        !widget.toolTip().isEmpty()) {
        needed.setWidth(0);
    }
    if (widget.width() >= needed.width() && widget.height() >= needed.height()) {
        return {};
    }
    return {fault(u"%1 of %2"_s.arg(sizeText(widget.size()), sizeText(needed)), widget)};
}

QStringList cutCells(const QAbstractItemView& view) {
    QStringList faults;
    if (view.horizontalScrollBar()->maximum() > 0 || view.textElideMode() == Qt::ElideMiddle) {
        return {}; // can be scrolled, or shortens paths on purpose
    }
    for (const TextPlace& place : textsOf(view)) {
        if (place.area.width() < textWidth(view, place.text)) {
            faults << fault(u"\"%1\" is cut"_s.arg(place.text), view);
        }
    }
    return faults;
}

QStringList cutTexts(const QWidget& widget) {
    if (const auto* picture = qobject_cast<const PictureBox*>(&widget)) {
        return cutTexts(*picture);
    }
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget)) {
        return cutCells(*view);
    }
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if (label != nullptr) {
        return {}; // its size says it
    }
    if (const auto* edit = qobject_cast<const QAbstractScrollArea*>(&widget)) {
        const bool speaks = qobject_cast<const QTextEdit*>(edit) != nullptr;
        return speaks && edit->viewport()->height() < 2 * edit->fontMetrics().lineSpacing()
                   ? QStringList(fault(u"not two lines high"_s, widget))
                   : QStringList();
    }
    QStringList faults;
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        for (int i = 0; i < combo->count(); ++i) {
            if (ComboSpy::fieldOf(*combo).width() < textWidth(*combo, combo->itemText(i))) {
                faults << fault(u"\"%1\" is cut"_s.arg(combo->itemText(i)), widget);
            }
        }
    }
    const bool hasMargins = qobject_cast<const QLineEdit*>(&widget) != nullptr;
    for (const TextPlace& place : textsOf(widget)) {
        // A style may reckon without what the last letter leaves free, an entry keeps a little
        // beside its text.
        const int slack = hasMargins ? 3 : 2;
        if (place.area.width() < textWidth(widget, place.text) - slack ||
            place.area.height() < widget.fontMetrics().height() - 2) {
            faults << fault(u"\"%1\" is cut to %2"_s.arg(place.text, sizeText(place.area.size())),
                            widget);
        }
    }
    return faults;
}

/// Buttons by which the toolkit says that not everything has found room.
QStringList hiddenParts(const QWidget& window) {
    QStringList faults;
    for (const auto* button : window.findChildren<QToolButton*>()) {
        const QString name = button->objectName();
        if (button->isVisible() &&
            (name == u"qt_toolbar_ext_button"_s || name == u"qt_menubar_ext_button"_s ||
             name == u"ScrollLeftButton"_s)) {
            faults << fault(u"not everything has room"_s, *button->parentWidget());
        }
    }
    return faults;
}

/// The title of a window inside the frame.
QStringList cutTitle(const QWidget& window) {
    const auto* inner = qobject_cast<const QMdiSubWindow*>(window.parentWidget());
    if (inner == nullptr || inner->isMaximized()) {
        return {};
    }
    QStyleOptionTitleBar option;
    option.initFrom(inner);
    option.text = inner->windowTitle();
    option.titleBarState = Qt::WindowActive;
    option.titleBarFlags = inner->windowFlags();
    option.subControls = QStyle::SC_All;
    option.rect = QRect(0, 0, inner->width(),
                        inner->style()->pixelMetric(QStyle::PM_TitleBarHeight, &option, inner));
    const QRect label = inner->style()->subControlRect(QStyle::CC_TitleBar, &option,
                                                       QStyle::SC_TitleBarLabel, inner);
    const QFontMetrics metrics(QApplication::font("QMdiSubWindowTitleBar"));
    return label.width() < metrics.horizontalAdvance(inner->windowTitle()) ||
                   label.height() < metrics.height()
               ? QStringList(u"title is cut: "_s + inner->windowTitle())
               : QStringList();
}

/// A control whose children may lie on each other: pages behind pages, windows, a lit button.
bool isPile(const QWidget& parent) {
    return qobject_cast<const QMdiArea*>(&parent) != nullptr ||
           qobject_cast<const QToolBar*>(&parent) != nullptr || parent.inherits("QStackedWidget") ||
           parent.inherits("QMainWindow");
}

double luminance(const QColor& colour) {
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// How often each colour comes in a part of a picture.
QHash<QRgb, int> coloursIn(const QImage& image, const QRect& area) {
    QHash<QRgb, int> counts;
    const QRect part = area.intersected(image.rect());
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            ++counts[image.pixel(x, y)];
        }
    }
    return counts;
}

QColor mostFrequent(const QHash<QRgb, int>& counts) {
    QRgb found = 0;
    int most = 0;
    for (const auto& [colour, count] : counts.asKeyValueRange()) {
        if (count > most) {
            most = count;
            found = colour;
        }
    }
    return QColor::fromRgb(found);
}

/// The contrast of what stands out most from the most frequent colour.
double greatestContrast(const QHash<QRgb, int>& counts) {
    const QColor ground = mostFrequent(counts);
    double greatest = 1;
    for (const QRgb colour : counts.keys()) {
        greatest = std::max(greatest, contrast(QColor::fromRgb(colour), ground));
    }
    return greatest;
}

double neededContrast(const QFont& font) {
    const bool large = QFontInfo(font).pointSizeF() >= largeText || font.bold();
    return large ? largeTextContrast : textContrast;
}

/// Pixels of the screen.
QRect deviceArea(const QWidget& window, const QWidget& widget, const QRect& area) {
    const qreal ratio = window.devicePixelRatioF();
    const QRect inWindow(widget.mapTo(&window, area.topLeft()), area.size());
    return QRectF(QPointF(inWindow.topLeft()) * ratio, QSizeF(inWindow.size()) * ratio).toRect();
}

QStringList contrastOfTexts(const QWidget& window, const PictureBox& picture, const QImage& image) {
    QStringList faults;
    for (const Primitive& primitive : picture.drawing().primitives) {
        const auto* text = std::get_if<Text>(&primitive);
        if (text == nullptr) {
            continue;
        }
        const auto counts = coloursIn(image, deviceArea(window, picture, areaOf(picture, *text)));
        // The colours within a picture are given, black on the greys of the days among them.
        const double found = contrast(toQColor(text->colour), mostFrequent(counts));
        if (found < pictureContrast) {
            faults << fault(u"contrast %1 of \"%2\""_s.arg(found).arg(text->text), picture);
        }
    }
    return faults.mid(0, 1);
}

bool showsPicture(const QWidget& widget) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return !button->icon().isNull();
    }
    const auto* label = qobject_cast<const QLabel*>(&widget);
    return (label != nullptr && !label->pixmap(Qt::ReturnByValue).isNull()) ||
           qobject_cast<const IconLabel*>(&widget) != nullptr ||
           qobject_cast<const TrendArrow*>(&widget) != nullptr;
}

/// Where a control paints its picture.
QRect pictureArea(const QWidget& widget) {
    QRect area = widget.rect();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        QRect icon(QPoint(), button->iconSize());
        const auto* tool = qobject_cast<const QToolButton*>(button);
        if (tool != nullptr && tool->toolButtonStyle() == Qt::ToolButtonTextUnderIcon) {
            area.setBottom(area.bottom() - button->fontMetrics().height());
        }
        icon.moveCenter(area.center());
        return icon.intersected(widget.rect());
    }
    return area;
}

QImage grabbed(QWidget& window) {
    QImage image = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
    image.setDevicePixelRatio(1);
    return image;
}

} // namespace

double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QStringList cutFaults(const QWidget& window) {
    QStringList faults = cutTitle(window) + hiddenParts(window);
    for (const QWidget* widget : controlsIn(window)) {
        faults += cutSize(*widget) + cutTexts(*widget);
    }
    return faults;
}

QStringList overlapFaults(const QWidget& window) {
    QStringList faults;
    const QList<QWidget*> all = controlsIn(window);
    for (qsizetype i = 0; i < all.size(); ++i) {
        const QWidget& widget = *all.at(i);
        const QWidget* parent = widget.parentWidget();
        const bool isScrolled =
            parent->parentWidget() != nullptr &&
            qobject_cast<QAbstractScrollArea*>(parent->parentWidget()) != nullptr;
        if (!isScrolled && !parent->rect().contains(widget.geometry())) {
            faults << fault(u"reaches out of %1"_s.arg(describe(*parent)), widget);
        }
        if (isPile(*parent)) {
            continue;
        }
        for (qsizetype j = i + 1; j < all.size(); ++j) {
            if (all.at(j)->parentWidget() == parent &&
                all.at(j)->geometry().intersects(widget.geometry())) {
                faults << fault(u"lies on %1"_s.arg(describe(*all.at(j))), widget);
            }
        }
    }
    return faults;
}

QStringList sizeFaults(const QWidget& window, QSize room) {
    const auto* inner = qobject_cast<const QMdiSubWindow*>(window.parentWidget());
    const QSize smallest = inner != nullptr
                               ? inner->minimumSizeHint().expandedTo(inner->minimumSize())
                               : window.minimumSizeHint().expandedTo(window.minimumSize());
    if (smallest.width() <= room.width() && smallest.height() <= room.height()) {
        return {};
    }
    return {u"not smaller than %1 for %2"_s.arg(sizeText(smallest), sizeText(room))};
}

QStringList contrastFaults(QWidget& window) {
    QStringList faults;
    const QImage image = grabbed(window);
    for (const QWidget* widget : controlsIn(window)) {
        if (!widget->isEnabled()) {
            continue;
        }
        if (const auto* picture = qobject_cast<const PictureBox*>(widget)) {
            faults += contrastOfTexts(window, *picture, image);
            continue;
        }
        for (const TextPlace& place : textsOf(*widget)) {
            if (place.text.trimmed().isEmpty()) {
                continue;
            }
            const double found =
                greatestContrast(coloursIn(image, deviceArea(window, *widget, place.area)));
            if (found < neededContrast(widget->font())) {
                faults << fault(u"contrast %1 of \"%2\""_s.arg(found).arg(place.text), *widget);
            }
        }
    }
    return faults;
}

QStringList pictureFaults(QWidget& window) {
    QStringList faults;
    const QImage image = grabbed(window);
    for (const QWidget* widget : controlsIn(window)) {
        if (!widget->isEnabled() || !showsPicture(*widget)) {
            continue;
        }
        const auto counts = coloursIn(image, deviceArea(window, *widget, pictureArea(*widget)));
        const QColor ground = mostFrequent(counts);
        int drawn = 0;
        int clear = 0;
        for (const auto& [rgb, count] : counts.asKeyValueRange()) {
            const QColor colour = QColor::fromRgb(rgb);
            const int difference = std::max({std::abs(colour.red() - ground.red()),
                                             std::abs(colour.green() - ground.green()),
                                             std::abs(colour.blue() - ground.blue())});
            drawn += difference > sameColour ? count : 0;
            clear += contrast(colour, ground) >= pictureContrast ? count : 0;
        }
        if (clear == 0 || clear < pictureShare * drawn) {
            faults << fault(u"picture: %1 of %2 pixels stand out"_s.arg(clear).arg(drawn), *widget);
        }
    }
    return faults;
}

} // namespace quor::test
