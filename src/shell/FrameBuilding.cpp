// What the frame is made of: menus, toolbar, status bar, the popup of a graph, keys.

#include "shell/MDIForm1.h"

#include "toolkit/ChildWindow.h"
#include "toolkit/ElidedLabel.h"
#include "toolkit/ImageList.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr QSize toolPictureSize(24, 24);

QString caption(const char16_t* text) {
    return QString::fromUtf16(text);
}

} // namespace

void MDIForm1::buildMenus() {
    for (const MenuInfo& info : menuTable()) {
        auto* menu = new QMenu(caption(info.caption), menuBar());
        menu->setObjectName(QString::fromLatin1(info.name));
        menuBar()->addMenu(menu);
        m_menus.at(static_cast<std::size_t>(info.menu)) = menu;
    }
    for (const CommandInfo& info : commandTable()) {
        auto* action = new QAction(caption(info.caption), this);
        action->setObjectName(QString::fromLatin1(info.name));
        action->setMenuRole(QAction::NoRole);
        connect(action, &QAction::triggered, this, [this, &info] {
            // Assistive tools find the entries of a disabled menu.
            if (info.menu == Menu::none ? m_toolbar->isEnabled()
                                        : m_states.isMenuEnabled(info.menu)) {
                choose(info.command);
            }
        });
        m_actions.at(static_cast<std::size_t>(info.command)) = action;
        if (info.menu != Menu::none) {
            QMenu* menu = m_menus.at(static_cast<std::size_t>(info.menu));
            if (info.startsGroup) {
                menu->addSeparator();
            }
            menu->addAction(action);
        }
    }
}

void MDIForm1::buildToolbar() {
    m_toolbar = addToolBar(u"Barra degli strumenti"_s);
    m_toolbar->setObjectName(u"Toolbar1"_s);
    m_toolbar->setMovable(false);
    m_toolbar->setIconSize(toolPictureSize);
    for (const ToolInfo& info : toolTable()) {
        QAction*& tool = m_tools.at(info.index());
        if (info.isSeparator()) {
            tool = m_toolbar->addSeparator();
            continue;
        }
        const QString key = QString::fromLatin1(info.key);
        tool = m_toolbar->addAction(picture(u"Imm"_s + key), caption(info.toolTip));
        tool->setObjectName(key);
        const Command command = info.command;
        connect(tool, &QAction::triggered, this, [this, command] { choose(command); });
        if (command == Command::mnuOpzioni) {
            auto* menu = new QMenu(this);
            menu->addAction(action(Command::graphOptions));
            menu->addAction(action(Command::weeklyOptions));
            tool->setMenu(menu);
            auto* button = qobject_cast<QToolButton*>(m_toolbar->widgetForAction(tool));
            button->setPopupMode(QToolButton::MenuButtonPopup);
        }
    }
}

void MDIForm1::buildStatusBar() {
    QStatusBar* bar = statusBar();
    bar->setObjectName(u"StatusBar1"_s);
    for (ElidedLabel*& panel : m_panels) {
        panel = new ElidedLabel(bar);
        panel->setFrameShape(QFrame::StyledPanel);
        bar->addWidget(panel, 1);
    }
}

void MDIForm1::buildPopup() {
    m_popup = new QMenu(u"PopUp"_s, this);
    m_popup->setObjectName(u"mnuPopUp"_s);
    const auto add = [this](const QString& name) {
        m_popup->addAction(QString())->setObjectName(name);
    };
    add(u"mnuPopGiorno"_s);
    m_popup->addSeparator()->setObjectName(u"mnuPopBar1"_s);
    add(u"mnuPopFis"_s);
    add(u"mnuPopEm"_s);
    add(u"mnuPopInt"_s);
    add(u"mnuPopMed"_s);
    add(u"mnuPopNota"_s);
    m_popup->actions().constLast()->setEnabled(false);
    m_popup->addSeparator()->setObjectName(u"mnuPopBar2"_s);
    QAction* options = m_popup->addAction(u"Opzioni"_s);
    options->setObjectName(u"mnuPopOpt"_s);
    connect(options, &QAction::triggered, this, [this] {
        if (!m_area->isEnabled() || QApplication::activeModalWidget() != nullptr) {
            return; // as for the commands
        }
        const QMdiSubWindow* active = m_area->currentSubWindow();
        if (auto* child = active ? qobject_cast<ChildWindow*>(active->widget()) : nullptr) {
            child->SetOptions();
        }
    });
}

/// The keys for the windows inside the frame that the toolkit does not bring itself. It always
/// brings Ctrl+Tab, and for closing either Ctrl+W or that and Ctrl+F4, as the desktop has it.
void MDIForm1::buildChildKeys() {
    const auto add = [this](const QString& keys, const auto& slot) {
        auto* action = new QAction(this);
        action->setShortcut(QKeySequence(keys));
        connect(action, &QAction::triggered, this, slot);
        addAction(action);
    };
    add(u"Ctrl+F6"_s, [this] { m_area->activateNextSubWindow(); });
    add(u"Ctrl+Shift+F6"_s, [this] { m_area->activatePreviousSubWindow(); });
    const QKeySequence close(u"Ctrl+F4"_s);
    if (!QKeySequence::keyBindings(QKeySequence::Close).contains(close)) {
        add(close.toString(), [this] { m_area->closeActiveSubWindow(); });
    }
    add(u"Alt+-"_s, [this] {
        if (QMdiSubWindow* window = m_area->activeSubWindow()) {
            window->showSystemMenu();
        }
    });
}

} // namespace quor
