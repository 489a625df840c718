#include "system/FProj.h"

#include "system/SystemOperations.h"
#include "system/SystemTreeModel.h"
#include "toolkit/CalculationDate.h"
#include "toolkit/ImageList.h"
#include "toolkit/ItemChoice.h"
#include "toolkit/Messages.h"
#include "toolkit/SecondClick.h"
#include "toolkit/ShowHelp.h"
#include "toolkit/ToolTipText.h"
#include "toolkit/WindowTitle.h"
#include "views/analysis/FComp.h"
#include "views/analysis/FPrev.h"
#include "views/analysis/FPrevMed.h"
#include "views/analysis/FStat.h"
#include "views/analysis/FStatMed.h"
#include "views/graph/FGrph.h"
#include "views/graph/FGrphMed.h"
#include "views/graph/FGrphSet.h"

#include <QCloseEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QTreeView>

#include <chrono>

#include "ui_FProj.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr std::chrono::milliseconds restDelay(100);

SystemTreeModel::Images treeImages() {
    return {.member = picture(u"ImmPersona"_s),
            .views = {picture(u"ImmGrafico"_s), picture(u"ImmSettimana"_s),
                      picture(u"ImmStatistica"_s), picture(u"ImmPrevisione"_s)}};
}

/// The box before an export or a print, which take the system over until they end.
void warnOfLock(QWidget* window, const QString& occupation, const QString& closing) {
    showWarning(
        window,
        u"Durante %1 non sarà possibile effettuare cambiamenti sul sistema.\n"
        "Il controllo del sistema sarà ripristinato con la chiusura della finestra %2."_s.arg(
            occupation, closing),
        u"Avviso"_s);
}

void warnOfExport(QWidget* window) {
    warnOfLock(window, u"l'esportazione"_s, u"esportazioni"_s);
}

bool isEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

FProj::FProj(Program& program, Frame& frame, QWidget* parent)
    : ChildWindow(parent)
    , m_program(program)
    , m_frame(frame)
    , m_ui(std::make_unique<Ui::FProj>())
    , m_tree(new SystemTreeModel(program.state, treeImages(), this)) {
    m_ui->setupUi(this);
    m_ui->Command5->setIcon(picture(u"ImmGrafico"_s));
    m_ui->Command6->setIcon(picture(u"ImmStatistica"_s));
    m_ui->Command4->setIcon(picture(u"ImmPrevisione"_s));

    QTreeView* tree = m_ui->TreeView1;
    tree->setModel(m_tree);
    selectItemsByTool(*tree);
    // One click, one window: the views open by the click itself and by the key, and not by what a
    // desktop takes for activation, which may be that same click or a second one. Assistive tools
    // can only select a leaf, and press the button then.
    connect(tree, &QTreeView::clicked, this, &FProj::openClicked);
    connect(tree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &FProj::showButtons);
    connect(m_tree, &QAbstractItemModel::modelReset, this, &FProj::showButtons);
    tree->installEventFilter(this);
    tree->viewport()->installEventFilter(this);

    connectButtons();
    giveTreeRoom();
    m_ui->Command1->setFocus();
    openSystem(m_program, m_frame);
}

FProj::~FProj() = default;

void FProj::connectButtons() {
    const auto connectButton = [this](QAbstractButton* button, void (FProj::*action)()) {
        connect(button, &QAbstractButton::clicked, this, action);
    };
    connectButton(m_ui->CommandOpen, &FProj::openSelectedView);
    connectButton(m_ui->Command1, &FProj::insertNew);
    connectButton(m_ui->Command2, &FProj::insertExisting);
    connectButton(m_ui->Command7, &FProj::removeMember);
    connectButton(m_ui->Command5, &FProj::openMeanGraph);
    connectButton(m_ui->Command6, &FProj::openMeanStatistics);
    connectButton(m_ui->Command4, &FProj::openMeanForecasts);
    connectButton(m_ui->Command8, &FProj::openCompatibility);
    connectButton(m_ui->Command3, &FProj::moveCalculationDate);
    connectButton(m_ui->Command12, &FProj::exportMember);
    connectButton(m_ui->Command13, &FProj::saveMember);
    connectButton(m_ui->Command14, &FProj::exportSystem);
    connectButton(m_ui->Command15, &FProj::printMember);
    connect(m_ui->Command10, &QPushButton::clicked, this,
            [this] { m_frame.run(Command::mnuOpzioni); });
    connect(m_ui->Command11, &QPushButton::clicked, this, &FProj::closeWindow);
    connect(m_ui->Command9, &QPushButton::clicked, this,
            [this] { ShowHelp(this, helpPath(u"Sistemi.html"_s)); });
    for (QToolButton* button : {m_ui->Command5, m_ui->Command6, m_ui->Command4}) {
        button->installEventFilter(this); // Enter presses them like their neighbours
    }
}

void FProj::fillTree() {
    m_tree->fill();
    // The rest of a very large system follows once the window stands and answers.
    QTimer::singleShot(restDelay, m_tree, &SystemTreeModel::showAll);
    enableSystemButtons(true);
    enableMemberButtons(m_program.state.systemCount > 0);
}

/// For a name of usual length, in any font.
void FProj::giveTreeRoom() {
    constexpr int letters = 26; // of "Bioritmo di" too, and its sign
    m_ui->TreeView1->setMinimumWidth(letters * fontMetrics().averageCharWidth());
}

void FProj::changeEvent(QEvent* event) {
    ChildWindow::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        giveTreeRoom();
    }
}

QSize FProj::sizeHint() const {
    return QWidget::sizeHint().expandedTo(forFont({640, 420}));
}

void FProj::addMember(const QString& name) {
    if (!canAddMember(this, m_program, name) ||
        !m_tree->addMember({name, m_program.biorhythm.birthDate})) {
        return;
    }
    m_program.state.modified = true;
    enableSystemButtons(true);
    enableMemberButtons(true);
    showSystemStatus(m_program, m_frame);
    m_ui->TreeView1->scrollTo(m_tree->index(m_tree->rowCount() - 1, 0));
}

void FProj::enableSystemButtons(bool enabled) {
    m_systemUsable = enabled;
    showButtons();
}

void FProj::enableMemberButtons(bool enabled) {
    m_memberUsable = enabled;
    showButtons();
}

void FProj::setUsable(Usable usable) {
    m_usable = usable;
    showButtons();
}

void FProj::showButtons() {
    using Widgets = std::initializer_list<QWidget*>;
    const auto enable = [](const Widgets& widgets, bool enabled) {
        for (QWidget* widget : widgets) {
            widget->setEnabled(enabled);
        }
    };
    const bool free = m_usable == Usable::everything;
    enable({m_ui->Command1, m_ui->Command2}, m_usable != Usable::nothing);
    enable({m_ui->Command4, m_ui->Command5, m_ui->Command6, m_ui->Command7},
           free && m_systemUsable);
    enable({m_ui->Command12, m_ui->Command13, m_ui->Command14, m_ui->Command15},
           free && m_memberUsable);
    enable({m_ui->Command3, m_ui->Command8, m_ui->Command9, m_ui->Command10, m_ui->Command11,
            m_ui->TreeView1},
           free);
    m_ui->CommandOpen->setEnabled(free && SystemTreeModel::view(selectedNode()).has_value());
}

QModelIndex FProj::selectedNode() const {
    return m_ui->TreeView1->selectionModel()->selectedIndexes().value(0);
}

QModelIndex FProj::selectedMember(const QString& purpose) {
    if (const QModelIndex node = selectedNode(); SystemTreeModel::isMember(node)) {
        return node;
    }
    showError(this,
              u"L'elemento selezionato non è valido. Selezionare un bioritmo da %1."_s.arg(purpose),
              u"Errore."_s);
    return {};
}

/// A file may hold a system without members, whose mean nobody can tell.
bool FProj::hasMembers() {
    if (m_program.state.systemCount > 0) {
        return true;
    }
    showError(this, u"Il sistema non contiene bioritmi. Nessuna operazione eseguita."_s,
              u"Errore"_s);
    return false;
}

void FProj::openClicked(const QModelIndex& node) {
    if (ChildWindow* view = openView(node)) {
        new SecondClick(view, [&frame = m_frame, view] { frame.showChild(view); });
    }
}

ChildWindow* FProj::openView(const QModelIndex& node) {
    const auto view = SystemTreeModel::view(node);
    if (!view) {
        return nullptr;
    }
    const SystemMember member = m_tree->member(node);
    startCurvesFor(member);
    ChildWindow* window = nullptr;
    QString title;
    switch (*view) {
    case MemberView::graph:
        window = new FGrph(m_program, m_frame);
        title = u"Grafico di "_s;
        break;
    case MemberView::weekly:
        window = new FGrphSet(m_program);
        title = u"Grafico settimanale per "_s;
        break;
    case MemberView::dayState:
        window = new FStat(m_program);
        title = u"Statistiche per "_s;
        break;
    case MemberView::forecasts:
        window = new FPrev(m_program);
        title = u"Previsioni per "_s;
        break;
    }
    setTitle(*window, title + member.name);
    m_frame.showChild(window);
    return window;
}

void FProj::openSelectedView() {
    openView(selectedNode());
}

void FProj::openMeanGraph() {
    if (hasMembers()) {
        m_frame.showChild(new FGrphMed(m_program, m_frame));
    }
}

void FProj::openMeanStatistics() {
    if (hasMembers()) {
        m_frame.showChild(new FStatMed(m_program));
    }
}

void FProj::openMeanForecasts() {
    if (hasMembers()) {
        m_frame.showChild(new FPrevMed(m_program));
    }
}

void FProj::openCompatibility() {
    if (m_compatibility == nullptr) {
        m_compatibility = new FComp(m_program);
        connect(m_compatibility, &ChildWindow::closed, this, [this] { m_compatibility = nullptr; });
    }
    m_frame.showChild(m_compatibility);
}

void FProj::insertNew() {
    m_frame.showBiorhythmEntry();
}

void FProj::insertExisting() {
    m_frame.run(Command::mnuApriBioritmo);
}

void FProj::removeMember() {
    const QModelIndex branch = selectedMember(u"rimuovere"_s);
    if (!branch.isValid()) {
        return;
    }
    if (askBeforeLoss(this, u"Rimuovere il bioritmo di %1 ?"_s.arg(m_tree->member(branch).name),
                      u"Conferma eliminazione"_s) == Answer::no) {
        return;
    }
    m_tree->removeMember(branch);
    if (m_program.state.systemCount == 0) {
        enableSystemButtons(false);
        enableMemberButtons(false);
    }
    m_program.state.modified = true;
    showSystemStatus(m_program, m_frame);
}

void FProj::moveCalculationDate() {
    const auto date = askCalculationDate(
        this, u"Inserire la data di calcolo desiderata.\n\n"
              "Un trucco: per la data di oggi, inserire semplicemente la parola 'oggi'."_s);
    if (!date) {
        return;
    }
    m_program.biorhythm.calculationDate = *date;
    showCalculationDate(m_frame, *date);
    showInformation(this,
                    u"La nuova data di calcolo è stata inserita.\n\n"
                    "ATTENZIONE: il contenuto delle finestre aperte NON cambierà finche saranno "
                    "aperte.\nChiudere e riaprire quindi le finestre interessate."_s,
                    u"Operazione eseguita."_s);
    m_program.state.modified = true;
}

void FProj::exportMember() {
    const QModelIndex branch = selectedMember(u"esportare"_s);
    if (!branch.isValid()) {
        return;
    }
    const SystemMember& member = m_tree->member(branch);
    makeCurrent(member);
    startCurvesFor(member);
    warnOfExport(this);
    lockWithFrame();
    m_frame.showExport(u"Esportazione bioritmo di "_s + m_program.biorhythm.name);
}

void FProj::saveMember() {
    const QModelIndex branch = selectedMember(u"esportare a file"_s);
    if (!branch.isValid()) {
        return;
    }
    makeCurrent(m_tree->member(branch));
    // The file that is written holds one member; the system's changes are in no file yet.
    const bool systemIsModified = m_program.state.modified;
    m_frame.run(Command::mnuSalvaConNome);
    m_program.state.modified = systemIsModified;
}

void FProj::exportSystem() {
    if (!hasMembers()) {
        return;
    }
    warnOfExport(this);
    m_frame.setMenuEnabled(Menu::mnuFile, false);
    m_frame.setToolbarEnabled(false);
    lock();
    m_program.state.exportWholeSystem = true;
    m_frame.showExport(u"Esportazione del sistema"_s);
}

void FProj::printMember() {
    const QModelIndex branch = selectedMember(u"stampare"_s);
    if (!branch.isValid()) {
        return;
    }
    const SystemMember& member = m_tree->member(branch);
    makeCurrent(member);
    startCurvesFor(member);
    warnOfLock(this, u"la procedura per la stampa"_s, u"di stampa"_s);
    lockWithFrame();
    m_frame.showPrint(PrintMode::print);
}

void FProj::makeCurrent(const SystemMember& member) {
    m_program.biorhythm.name = member.name;
    m_program.biorhythm.birthDate = member.birthDate;
}

void FProj::startCurvesFor(const SystemMember& member) {
    Biorhythm& biorhythm = m_program.biorhythm;
    biorhythm.daysAtGraphStart = dayCountAtGraphStart(member.birthDate, biorhythm.calculationDate);
}

/// With the title bar around it, whose close box would still close the system.
void FProj::lock() {
    setEnabled(false);
    if (auto* window = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        window->setEnabled(false);
    }
}

void FProj::lockWithFrame() {
    if (QWidget* frame = m_frame.widget()) {
        frame->setEnabled(false);
    }
    lock();
}

void FProj::unlock() {
    if (auto* window = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        window->setEnabled(true);
    }
    setEnabled(true);
}

bool FProj::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ToolTip && watched == m_ui->TreeView1->viewport()) {
        showNodeTip(static_cast<QHelpEvent*>(event)->pos());
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (isEnter(key)) {
            if (key.isAutoRepeat()) {
                return true; // a key held down opens one window
            }
            if (watched == m_ui->TreeView1) {
                openView(m_ui->TreeView1->currentIndex());
                return true;
            }
            if (auto* button = qobject_cast<QToolButton*>(watched)) {
                button->click();
                return true;
            }
        }
    }
    return ChildWindow::eventFilter(watched, event);
}

void FProj::showNodeTip(QPoint position) {
    const QTreeView* tree = m_ui->TreeView1;
    const QModelIndex node = tree->indexAt(position);
    const QRect area = tree->visualRect(node);
    const bool isCut = node.isValid() && tree->sizeHintForIndex(node).width() > area.width();
    QToolTip::showText(tree->viewport()->mapToGlobal(position),
                       isCut ? toolTipText(node.data().toString()) : QString(), tree->viewport(),
                       area);
}

void FProj::closeEvent(QCloseEvent* event) {
    if (!mayClose()) {
        event->ignore();
        return;
    }
    if (ask(this,
            u"Questo comporterà la chiusura del sistema aperto attualmente. Si desidera continuare "
            "ugualmente?"_s,
            u"Conferma"_s) == Answer::no) {
        event->ignore();
        return;
    }
    if (m_program.state.modified &&
        ask(this,
            u"Sono presenti dati non salvati. Si desidera salvare prima di chiudere il sistema ?"_s,
            u"Conferma"_s) == Answer::yes) {
        m_frame.run(Command::mnuSalvaSistema);
        if (m_program.state.modified) {
            // Not saved after all, by a fault or because the file dialog was cancelled: whoever
            // wanted to keep the data keeps the system.
            event->ignore();
            return;
        }
    }
    if (m_compatibility != nullptr) {
        m_compatibility->closeWindow(); // there is one at a time, and another system has its own
    }
    m_tree->clear(); // before the members go: closing other windows may have this one painted
    closeSystem(m_program, m_frame);
    ChildWindow::closeEvent(event);
}

} // namespace quor
