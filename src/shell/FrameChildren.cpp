// The windows inside the frame: how they are shown, and how they are arranged.

#include "shell/MDIForm1.h"

#include "shell/ChildArrangement.h"
#include "shell/MaximisedChild.h"
#include "shell/TitleBarStyle.h"
#include "toolkit/ChildWindow.h"

#include <QApplication>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// The toolkit's Italian gives one access key to three entries of a window's own menu.
void giveKeysOfTheirOwn(const QMenu& systemMenu) {
    for (QAction* entry : systemMenu.actions()) {
        if (entry->text() == u"Dimen&sione"_s) {
            entry->setText(u"&Dimensione"_s);
        } else if (entry->text() == u"Ma&ssimizza"_s) {
            entry->setText(u"&Massimizza"_s);
        }
    }
}

/// The last entry of a window's own menu closes it. Assistive tools find it beneath a box too,
/// which may be about this window, and in a window that is disabled.
void closeOnlyWhenFree(QMdiSubWindow* window) {
    const QAction* close = window->systemMenu()->actions().constLast();
    QObject::disconnect(close, &QAction::triggered, window, nullptr);
    QObject::connect(close, &QAction::triggered, window, [window] {
        if (window->isEnabled() && QApplication::activeModalWidget() == nullptr) {
            window->close();
        }
    });
}

/// Controls know their size for certain once the style has seen them; what the layouts around them,
/// those on the pages of a tab too, have heard before may be too little.
void askForSizesAnew(QWidget& window) {
    for (QWidget* control : window.findChildren<QWidget*>()) {
        control->ensurePolished();
        control->updateGeometry();
    }
    for (QLayout* layout : window.findChildren<QLayout*>()) {
        layout->invalidate(); // a layout in a layout is not told otherwise
    }
    window.updateGeometry();
}

} // namespace

void MDIForm1::showChild(ChildWindow* child) {
    auto* window = qobject_cast<QMdiSubWindow*>(child->parentWidget());
    if (window == nullptr) {
        window = m_area->addSubWindow(child);
        giveKeysOfTheirOwn(*window->systemMenu());
        closeOnlyWhenFree(window);
        m_maximisedChild->watch(window);
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->setWindowIcon(windowIcon());
        if (m_titleBarStyle->isNeeded()) {
            window->setStyle(m_titleBarStyle);
        }
        askForSizesAnew(*child);
        window->resize(window->sizeHint().boundedTo(m_area->viewport()->size()));
    }
    if (window->isMinimized()) {
        window->showNormal();
    }
    m_maximisedChild->show(window);
}

void MDIForm1::showDayPopup(const DayPopup& popup, QPoint globalPosition) {
    const auto setCaption = [this](const QString& name, const QString& text) {
        m_popup->findChild<QAction*>(name)->setText(text);
    };
    setCaption(u"mnuPopGiorno"_s, popup.day);
    setCaption(u"mnuPopFis"_s, popup.physical);
    setCaption(u"mnuPopEm"_s, popup.emotional);
    setCaption(u"mnuPopInt"_s, popup.intellectual);
    setCaption(u"mnuPopMed"_s, popup.mean);
    setCaption(u"mnuPopNota"_s, popup.note);
    m_popup->findChild<QAction*>(u"mnuPopNota"_s)->setVisible(!popup.note.isEmpty());
    m_popup->popup(globalPosition);
}

QList<QMdiSubWindow*> MDIForm1::children(bool minimised) const {
    QList<QMdiSubWindow*> windows = m_area->subWindowList(QMdiArea::StackingOrder);
    windows.removeIf([minimised](const QMdiSubWindow* window) {
        return window->isHidden() || window->isMinimized() != minimised;
    });
    std::reverse(windows.begin(), windows.end()); // the active one first
    return windows;
}

void MDIForm1::arrangeChildren(Command command) {
    const QList<QMdiSubWindow*> icons = children(true);
    const QList<QMdiSubWindow*> windows = children(false);
    if (command == Command::mnuWinArrIco) {
        if (!icons.isEmpty()) {
            const auto places =
                arrangeIcons(m_area->viewport()->size(), icons.constFirst()->frameGeometry().size(),
                             static_cast<int>(icons.size()));
            for (qsizetype i = 0; i < icons.size(); ++i) {
                icons[i]->move(places[i]);
            }
        }
        return;
    }
    if (command == Command::mnuWinArrCas) {
        m_area->cascadeSubWindows();
        return;
    }
    QSize area = m_area->viewport()->size();
    if (!icons.isEmpty()) {
        area.rheight() -= icons.constFirst()->frameGeometry().height();
    }
    const int count = static_cast<int>(windows.size());
    const auto places = command == Command::mnuWinArrHor ? tileHorizontally(area, count)
                                                         : tileVertically(area, count);
    for (qsizetype i = 0; i < windows.size(); ++i) {
        windows[i]->showNormal();
        windows[i]->setGeometry(places[i]);
    }
}

} // namespace quor
