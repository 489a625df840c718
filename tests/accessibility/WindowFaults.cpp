#include "accessibility/WindowFaults.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMdiArea>
#include <QMenuBar>
#include <QScrollArea>
#include <QSet>
#include <QSplitterHandle>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// Pixels by which two controls may overlap and still stand beside each other.
constexpr int tolerance = 4;
/// More presses of the tab key than any window or page of help has places.
constexpr int enough = 400;

/// A control whose parts are its own affair.
bool isWhole(const QWidget& widget) {
    return qobject_cast<const QComboBox*>(&widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr ||
           qobject_cast<const QAbstractScrollArea*>(&widget) != nullptr ||
           qobject_cast<const QLineEdit*>(&widget) != nullptr ||
           qobject_cast<const QTabBar*>(&widget) != nullptr ||
           qobject_cast<const QMenuBar*>(&widget) != nullptr;
}

/// Something that the toolkit adds by itself.
bool isAddition(const QWidget& widget) {
    return qobject_cast<const QSplitterHandle*>(&widget) != nullptr ||
           widget.objectName() == u"qt_toolbar_ext_button"_s ||
           // The sign in a message box says no more than the box's title.
           widget.objectName() == u"qt_msgboxex_icon_label"_s;
}

void collect(const QWidget& parent, QList<QWidget*>& found) {
    for (QObject* object : parent.children()) {
        auto* widget = qobject_cast<QWidget*>(object);
        if (widget == nullptr || widget->isWindow() || !widget->isVisible() ||
            isAddition(*widget)) {
            continue;
        }
        found << widget;
        const auto* scrolling = qobject_cast<QScrollArea*>(widget);
        if (scrolling != nullptr && scrolling->widget() != nullptr) {
            found << scrolling->widget();
            collect(*scrolling->widget(), found);
        } else if (!isWhole(*widget)) {
            collect(*widget, found);
        }
    }
}

} // namespace

QList<QWidget*> controlsIn(const QWidget& window) {
    QList<QWidget*> found;
    collect(window, found);
    return found;
}

QString describe(const QWidget& widget) {
    QString className = QString::fromLatin1(widget.metaObject()->className());
    return widget.objectName().isEmpty() ? className : className + u' ' + widget.objectName();
}

namespace {

/// The name by the widget itself or by its label; what it merely contains is not its name.
QString givenName(const QWidget& widget, const QList<QWidget*>& all) {
    if (!widget.accessibleName().isEmpty()) {
        return widget.accessibleName();
    }
    for (const QWidget* other : all) {
        if (const auto* label = qobject_cast<const QLabel*>(other);
            label != nullptr && label->buddy() == &widget) {
            return label->text();
        }
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return button->text().isEmpty() ? button->toolTip() : button->text();
    }
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
        return group->title();
    }
    if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
        return tabs->tabText(tabs->currentIndex());
    }
    return {};
}

bool needsName(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        return !label->pixmap(Qt::ReturnByValue).isNull() && label->text().isEmpty();
    }
    if (widget.focusPolicy() != Qt::NoFocus && widget.focusProxy() == nullptr) {
        return true;
    }
    if (qobject_cast<const QAbstractButton*>(&widget) != nullptr) {
        return true;
    }
    const QAccessible::Role role =
        QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget))->role();
    return role == QAccessible::Chart || role == QAccessible::Graphic ||
           role == QAccessible::ProgressBar;
}

QChar accessKey(const QString& text) {
    const QString keys = QKeySequence::mnemonic(text).toString();
    return keys.isEmpty() ? QChar() : keys.back();
}

using TextsByKey = QMap<QChar, QStringList>;

void note(TextsByKey& texts, const QString& text) {
    if (const QChar key = accessKey(text); !key.isNull()) {
        texts[key] << text;
    }
}

QStringList doubled(const TextsByKey& texts, const Clashes& allowed) {
    QStringList faults;
    for (const auto& [key, sharing] : texts.asKeyValueRange()) {
        const QString clash = key + u": "_s + sharing.join(u" | "_s);
        if (sharing.size() > 1 && !allowed.contains(clash)) {
            faults << u"shared access key "_s + clash;
        }
    }
    return faults;
}

bool isHelpButton(const QWidget& widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    return button != nullptr &&
           (button->text() == u"&?"_s || button->property("helpButton").toBool());
}

bool takesTab(const QWidget& widget) {
    return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.isEnabled() &&
           widget.focusProxy() == nullptr;
}

/// The member of the list that has the keyboard, itself or a part of it; null if none.
QWidget* focusIn(const QList<QWidget*>& widgets) {
    QWidget* widget = QApplication::focusWidget();
    while (widget != nullptr && !widgets.contains(widget)) {
        widget = widget->isWindow() ? nullptr : widget->parentWidget();
    }
    return widget;
}

QRect placeIn(const QWidget& window, const QWidget& widget) {
    return {widget.mapTo(&window, QPoint()), widget.size()};
}

bool goesBack(const QRect& from, const QRect& to) {
    const int overlap = std::min(from.bottom(), to.bottom()) - std::max(from.top(), to.top());
    if (overlap > std::min(from.height(), to.height()) / 2) {
        return to.right() < from.left() + tolerance;
    }
    return to.center().y() < from.center().y() && to.left() < from.right() - tolerance;
}

QStringList orderFaults(const QWidget& window, QList<QWidget*> order) {
    order.removeIf([](const QWidget* widget) { return isHelpButton(*widget); });
    QStringList jumps;
    for (qsizetype i = 0; i < order.size(); ++i) {
        const QWidget& from = *order.at(i);
        const QWidget& to = *order.at((i + 1) % order.size());
        if (goesBack(placeIn(window, from), placeIn(window, to))) {
            jumps << describe(from) + u" -> "_s + describe(to);
        }
    }
    // One way back is that from the end to the beginning.
    return jumps.size() <= 1 ? QStringList()
                             : QStringList(u"tab jumps back: "_s + jumps.join(u", "_s));
}

} // namespace

QStringList nameFaults(const QWidget& window) {
    QStringList faults;
    const QList<QWidget*> all = controlsIn(window);
    for (QWidget* widget : all) {
        const QString description =
            QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Description);
        if (Qt::mightBeRichText(description)) {
            faults << u"described with markup: "_s + describe(*widget);
        }
        if (!needsName(*widget)) {
            continue;
        }
        const QString told = QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
        if (givenName(*widget, all).isEmpty() ||
            (told.isEmpty() && qobject_cast<QTabBar*>(widget) == nullptr)) {
            faults << u"no name: "_s + describe(*widget);
        }
    }
    return faults;
}

QStringList accessKeyFaults(const QWidget& window, const Clashes& allowed) {
    QStringList faults;
    TextsByKey texts;
    for (const QWidget* widget : controlsIn(window)) {
        if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            if (label->textFormat() != Qt::PlainText && !accessKey(label->text()).isNull() &&
                label->buddy() == nullptr) {
                faults << u"access key without a control: "_s + label->text();
            }
            if (label->buddy() != nullptr) {
                note(texts, label->text());
            }
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            note(texts, button->text());
        } else if (const auto* group = qobject_cast<const QGroupBox*>(widget)) {
            note(texts, group->title());
        } else if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
            for (int i = 0; i < tabs->count(); ++i) {
                note(texts, tabs->tabText(i));
            }
        } else if (const auto* bar = qobject_cast<const QMenuBar*>(widget)) {
            for (const QAction* action : bar->actions()) {
                note(texts, action->text());
            }
        }
    }
    return faults + doubled(texts, allowed);
}

QStringList menuFaults(const QList<QAction*>& entries, const Clashes& allowed) {
    QStringList faults;
    TextsByKey texts;
    for (const QAction* entry : entries) {
        if (entry->isSeparator() || !entry->isVisible()) {
            continue;
        }
        if (entry->text().isEmpty()) {
            faults << u"entry without a text: "_s + entry->objectName();
        }
        note(texts, entry->text());
    }
    return faults + doubled(texts, allowed);
}

QStringList tabFaults(QWidget& window) {
    const QList<QWidget*> all = controlsIn(window);
    QList<QWidget*> expected = all;
    expected.removeIf([](const QWidget* widget) { return !takesTab(*widget); });
    if (expected.isEmpty()) {
        return {};
    }
    QWidget* const first = focusIn(all);
    if (first == nullptr) {
        return {u"the keyboard is not in the window"_s};
    }
    QStringList faults;
    if (isHelpButton(*first)) {
        faults << u"the keyboard is on the help button at first"_s;
    }

    QList<QWidget*> order{first};
    for (int i = 0; i < enough; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QWidget* reached = focusIn(all);
        if (reached == nullptr) {
            const QWidget* other = QApplication::focusWidget();
            faults << u"tab leaves the window after "_s + describe(*order.back()) + u", to "_s +
                          (other != nullptr ? describe(*other) : u"nothing"_s);
            break;
        }
        if (reached == first && order.size() > 1) {
            break;
        }
        if (reached != order.back()) {
            order << reached;
        }
    }
    for (const QWidget* widget : expected) {
        if (!order.contains(widget)) {
            faults << u"tab does not reach "_s + describe(*widget);
        }
    }
    return faults + orderFaults(window, order);
}

QStringList windowFaults(QWidget& window, const Clashes& allowed) {
    QStringList faults;
    if (window.windowTitle().isEmpty()) {
        faults << u"no title"_s;
    }
    return faults + nameFaults(window) + accessKeyFaults(window, allowed) + tabFaults(window);
}

} // namespace quor::test
