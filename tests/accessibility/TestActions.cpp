#include "accessibility/TestActions.h"

#include "shell/ApplicationSetup.h"
#include "toolkit/ColourSwatch.h"

#include "accessibility/EveryWindow.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeView>

#include <array>
#include <functional>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// Answers every box without doing anything, but for a colour, and notes what was asked.
class NotingHost : public DialogHost {
  public:
    Answer message(QWidget* /*parent*/, const MessageBox& box) override {
        asked << box.text;
        return box.kind == BoxKind::question || box.kind == BoxKind::loss ? Answer::no : Answer::ok;
    }
    qsizetype choice(QWidget* /*parent*/, const ChoiceBox& box) override {
        asked << box.text;
        return box.buttons.size() - 1;
    }
    QString input(QWidget* /*parent*/, const QString& prompt, const QString& /*title*/) override {
        asked << prompt;
        return {};
    }
    QString file(QWidget* /*parent*/, const FileRequest& request) override {
        asked << request.title;
        return {};
    }
    std::optional<QColor> colour(QWidget* /*parent*/, const QColor& /*initial*/,
                                 const QString& title) override {
        asked << title;
        return QColor(1, 2, 3);
    }
    std::optional<PrintChoice> print(QWidget* /*parent*/, const PrintRequest& request) override {
        asked << request.title;
        return std::nullopt;
    }

    QStringList asked;

  private:
    ScopedDialogHost m_scope{*this};
};

/// What a widget tells.
QString told(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        return label->text();
    }
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
        return line->text();
    }
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(&widget)) {
        return text->toPlainText();
    }
    if (const auto* page = qobject_cast<const QTextBrowser*>(&widget)) {
        return page->source().toString();
    }
    if (const auto* swatch = qobject_cast<const ColourSwatch*>(&widget)) {
        return QString::number(swatch->colour());
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return button->isChecked() ? u"checked"_s : QString();
    }
    if (const auto* list = qobject_cast<const QComboBox*>(&widget)) {
        return list->currentText();
    }
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget)) {
        return QString::number(view->model() == nullptr ? 0 : view->model()->rowCount());
    }
    return widget.accessibleDescription();
}

/// The record, the boxes that came and what the windows tell, without the control itself.
QString consequences(const WindowScene& scene, const NotingHost& boxes, const QWidget* control) {
    const Biorhythm& record = scene.program.biorhythm;
    QStringList lines{record.name, boxes.asked.join(u'|')};
    for (const bool flag :
         {record.openGraph, record.openWeekly, record.openStatistics, record.openForecasts}) {
        lines << QString::number(static_cast<int>(flag));
    }
    lines << QString::number(record.dayIndexPosition) << QString::number(record.graphDaysAdjust);
    for (const Colour colour : record.curveColours) {
        lines << QString::number(colour);
    }
    for (const Colour colour : record.weeklyColours) {
        lines << QString::number(colour);
    }
    QStringList widgets;
    for (const QWidget* widget : QApplication::allWidgets()) {
        if (widget->isVisible() && widget != control &&
            (control == nullptr || !control->isAncestorOf(widget)) &&
            widget->windowType() != Qt::Popup && widget->windowType() != Qt::ToolTip) {
            widgets << u"%1 %2 %3 %4: %5"_s.arg(
                QString::fromLatin1(widget->metaObject()->className()), widget->objectName(),
                widget->isEnabled() ? QString() : u"disabled"_s, widget->windowTitle(),
                told(*widget));
        }
    }
    widgets.sort();
    return (lines + widgets).join(u'\n');
}

/// What makes the choices of a window count; null where they count at once.
QAbstractButton* confirmation(const QWidget* window) {
    static const QStringList confirmed{u"FGrph"_s, u"FGrphMed"_s, u"FGrOpt"_s, u"FGrSetOpt"_s};
    return window != nullptr && confirmed.contains(window->objectName())
               ? window->findChild<QAbstractButton*>(u"Command1"_s)
               : nullptr;
}

void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

QAccessibleInterface* interfaceOf(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget);
}

/// Does the first of these actions that the object has.
bool act(QAccessibleInterface* object, const QStringList& actions) {
    QAccessibleActionInterface* interface = object == nullptr ? nullptr : object->actionInterface();
    for (const QString& action : actions) {
        if (interface != nullptr && interface->actionNames().contains(action)) {
            interface->doAction(action);
            return true;
        }
    }
    return false;
}

bool press(QAccessibleInterface* object) {
    return act(object, {QAccessibleActionInterface::pressAction(),
                        QAccessibleActionInterface::toggleAction()});
}

/// The tab and the name of a control.
using Place = std::pair<int, QString>;

/// A window that has just been opened, for one action.
class Stage {
  public:
    explicit Stage(const WindowEntry& entry)
        : window(showWindow(entry, scene)) {}

    template<typename Control> Control* control(const Place& place) {
        if (auto* tabs = window->findChild<QTabWidget*>()) {
            tabs->setCurrentIndex(place.first);
        }
        settle();
        return window->findChild<Control*>(place.second);
    }

    QString after(QWidget* control, const std::function<void()>& action) {
        const QPointer<QWidget> kept = control;
        action();
        settle();
        QString outcome = consequences(scene, boxes, kept);
        if (auto* confirm = confirmation(window)) {
            confirm->click();
            settle();
            outcome += u"\nthen\n"_s + consequences(scene, boxes, kept);
        }
        return outcome;
    }

    WindowScene scene;
    NotingHost boxes;
    QPointer<QWidget> window;
};

/// The controls of a kind that can be used, each with the tab that it lies on.
template<typename Control> QList<Place> namesOf(const WindowEntry& entry) {
    const Stage stage(entry);
    QWidget& window = *stage.window;
    QList<Place> names;
    auto* tabs = window.findChild<QTabWidget*>();
    for (int tab = 0; tab < (tabs == nullptr ? 1 : tabs->count()); ++tab) {
        if (tabs != nullptr) {
            tabs->setCurrentIndex(tab);
            settle();
        }
        for (const Control* control : window.findChildren<Control*>()) {
            const bool known = std::ranges::any_of(
                names, [&](const Place& name) { return name.second == control->objectName(); });
            const bool isQts = qobject_cast<const QPushButton*>(control) != nullptr ||
                               qobject_cast<const QToolButton*>(control) != nullptr;
            if (!known && !isQts && !control->objectName().isEmpty() &&
                control->isVisibleTo(&window) && control->isEnabled() &&
                control->focusPolicy() != Qt::NoFocus) {
                names << Place(tab, control->objectName());
            }
        }
    }
    return names;
}

/// One way to do something to a control.
template<typename Control> using Way = std::function<void(Stage&, Control&)>;

QString without(const QString& lines, const QString& others) {
    QStringList rest = lines.split(u'\n');
    for (const QString& other : others.split(u'\n')) {
        rest.removeOne(other);
    }
    return rest.join(u" | "_s);
}

/// Does it by hand and in each of the other ways. Says what came of it otherwise, and that nothing
/// came of it where something should.
template<typename Control>
QString differences(const WindowEntry& entry, const Place& place, const Way<Control>& byHand,
                    const QList<Way<Control>>& byTool) {
    // What these say counts later, or never.
    static const QStringList inert{u"FEspBio Check3"_s,    u"FEspBio Combo1"_s,
                                   u"FStampaBio Check2"_s, u"FStampaBio Check3"_s,
                                   u"FFastStart Check1"_s, u"FFastStart Frame3"_s,
                                   u"FEspBio List1"_s};
    const auto outcome = [&](const Way<Control>& way) {
        Stage stage(entry);
        auto* control = stage.control<Control>(place);
        return stage.after(control, [&] { way(stage, *control); });
    };
    const QString name =
        QString::fromLatin1(entry.className).section(u':', -1) + u' ' + place.second;
    const QString untouched = outcome([](Stage&, Control&) {});
    const QString byHands = outcome(byHand);
    if ((byHands == untouched) != inert.contains(name)) {
        return name + u": whether anything comes of it is not as listed"_s;
    }
    for (const Way<Control>& way : byTool) {
        if (const QString byTools = outcome(way); byTools != byHands) {
            return name + u": only by hand: "_s + without(byHands, byTools) +
                   u"; only by a tool: "_s + without(byTools, byHands);
        }
    }
    return {};
}

void addWindows() {
    QTest::addColumn<const WindowEntry*>("entry");
    for (const WindowEntry& entry : everyWindow()) {
        QTest::newRow(entry.className) << &entry;
    }
}

/// The item of a list or tree as assistive tools find it.
QAccessibleInterface* itemInterface(QAbstractItemView& view, const QModelIndex& index) {
    QAccessibleInterface* list = interfaceOf(&view);
    for (int i = 0; list != nullptr && i < list->childCount(); ++i) {
        QAccessibleInterface* item = list->child(i);
        if (item->rect() ==
            view.visualRect(index).translated(view.viewport()->mapToGlobal(QPoint()))) {
            return item;
        }
    }
    return nullptr;
}

} // namespace

void TestActions::initTestCase() {
    setUpApplication(*qApp);
}

void TestActions::buttons_data() {
    addWindows();
}

/// Check boxes, swatches and choices. Those that Qt itself draws and presses are Qt's affair.
void TestActions::buttons() {
    QFETCH(const WindowEntry*, entry);
    const Way<QAbstractButton> byHand = [](Stage&, QAbstractButton& button) {
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(10, button.height() / 2));
    };
    const Way<QAbstractButton> byTool = [](Stage&, QAbstractButton& button) {
        const QPointer<QAbstractButton> pressed = &button;
        QVERIFY2(press(interfaceOf(&button)), qPrintable(button.objectName()));
        QTRY_VERIFY(pressed == nullptr || !pressed->isDown()); // Qt lets a press last a moment
    };
    for (const Place& place : namesOf<QAbstractButton>(*entry)) {
        QCOMPARE(differences<QAbstractButton>(*entry, place, byHand, {byTool}), QString());
    }
}

void TestActions::lists_data() {
    addWindows();
}

/// Drop-down lists: a new value, and an item of the list that is done as it offers.
void TestActions::lists() {
    QFETCH(const WindowEntry*, entry);
    const auto target = [](const QComboBox& list) {
        return list.currentIndex() + 1 < list.count() ? list.currentIndex() + 1
                                                      : list.currentIndex() - 1;
    };
    // Two persons are compared only when the other list names one too.
    const auto prepare = [](Stage& stage, const QComboBox& list) {
        for (auto* other : stage.window->findChildren<QComboBox*>()) {
            if (other != &list) {
                QTest::keyClick(other, Qt::Key_Down);
            }
        }
    };
    const Way<QComboBox> byHand = [&](Stage& stage, QComboBox& list) {
        prepare(stage, list);
        QTest::keyClick(&list, target(list) > list.currentIndex() ? Qt::Key_Down : Qt::Key_Up);
    };
    const Way<QComboBox> byValue = [&](Stage& stage, QComboBox& list) {
        prepare(stage, list);
        list.setCurrentIndex(target(list));
    };
    const Way<QComboBox> byItem = [&](Stage& stage, QComboBox& list) {
        prepare(stage, list);
        QVERIFY(press(interfaceOf(&list)->child(0)->child(target(list))));
    };
    const Way<QComboBox> byOpenItem = [&](Stage& stage, QComboBox& list) {
        prepare(stage, list);
        QVERIFY(press(interfaceOf(&list)));
        settle();
        QVERIFY(press(interfaceOf(&list)->child(0)->child(target(list))));
    };
    for (const Place& place : namesOf<QComboBox>(*entry)) {
        QCOMPARE(differences<QComboBox>(*entry, place, byHand, {byValue, byItem, byOpenItem}),
                 QString());
    }
}

void TestActions::items_data() {
    addWindows();
}

/// The last item of each tree and list.
void TestActions::items() {
    QFETCH(const WindowEntry*, entry);
    const auto last = [](QAbstractItemView& view) {
        if (auto* tree = qobject_cast<QTreeView*>(&view)) {
            tree->expandAll();
        }
        // Help reads its contents while its window is there already.
        [&] { QTRY_VERIFY(view.model()->rowCount() > 0); }();
        QModelIndex index = view.model()->index(view.model()->rowCount() - 1, 0);
        while (view.model()->rowCount(index) > 0) {
            index = view.model()->index(view.model()->rowCount(index) - 1, 0, index);
        }
        view.scrollTo(index);
        settle();
        return index;
    };
    const Way<QAbstractItemView> byHand = [&](Stage&, QAbstractItemView& view) {
        const QModelIndex index = last(view);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
    };
    const Way<QAbstractItemView> byTool = [&](Stage&, QAbstractItemView& view) {
        QAccessibleInterface* item = itemInterface(view, last(view));
        QVERIFY2(press(item), qPrintable(view.objectName()));
        settle();
        for (auto* open : view.parentWidget()->findChildren<QPushButton*>()) {
            if (open->isVisible() && QString(open->text()).remove(u'&') == u"Apri"_s) {
                open->click(); // Qt does it a moment after the tool
            }
        }
    };
    for (const Place& place : namesOf<QAbstractItemView>(*entry)) {
        if (place.second == u"searchResults"_s) {
            continue; // empty before a search
        }
        QCOMPARE(differences<QAbstractItemView>(*entry, place, byHand, {byTool}), QString());
    }
}

} // namespace quor::test
