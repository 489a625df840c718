// The four views of the current biorhythm, each made on first use, and the dialogs for their
// options.

#include "shell/MDIForm1.h"

#include "guidance/FOpt.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/Messages.h"
#include "toolkit/WindowTitle.h"
#include "views/analysis/FPrev.h"
#include "views/analysis/FStat.h"
#include "views/graph/FGrOpt.h"
#include "views/graph/FGrSetOpt.h"
#include "views/graph/FGrph.h"
#include "views/graph/FGrphSet.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// What a view command would have given, as its refusal says it.
QString wanted(Command command) {
    switch (command) {
    case Command::mnuStatoSettimanale:
        return u"lo stato settimanale"_s;
    case Command::mnuStatoOdierno:
        return u"lo stato"_s;
    default:
        return u"il grafico"_s;
    }
}

/// Makes the view unless it is there; the pointer is null again once it has closed.
template<typename View, typename Make>
View* ensure(QPointer<View>& view, QObject* owner, Make make) {
    if (view == nullptr) {
        view = make();
        QObject::connect(view, &ChildWindow::closed, owner, [&view] { view = nullptr; });
    }
    return view;
}

template<typename View> void closeIfOpen(const QPointer<View>& view) {
    if (view != nullptr) {
        view->closeWindow();
    }
}

} // namespace

void MDIForm1::openView(Command command) {
    const QString& name = m_program.biorhythm.name;
    if (m_program.biorhythm.birthDate == 0) {
        showError(this,
                  u"Nessuna data è ancora stata inserita. Scegliere Calcola dal menu Bioritmi per "
                  "avere %1 del bioritmo desiderato."_s.arg(wanted(command)),
                  u"Errore"_s);
        return;
    }
    switch (command) {
    case Command::mnuGrafico:
        openGraph();
        break;
    case Command::mnuStatoSettimanale:
        openWeekly(u"Stato settimanale di "_s + name);
        break;
    case Command::mnuStatoOdierno:
        openDayState(u"Stato del giorno di "_s + name);
        break;
    default:
        openForecasts();
        break;
    }
}

void MDIForm1::openGraph() {
    FGrph* view = ensure(m_graph, this, [this] { return new FGrph(m_program, *this); });
    setTitle(*view, u"Grafico di "_s + m_program.biorhythm.name);
    showChild(view);
}

void MDIForm1::openWeekly(const QString& title) {
    FGrphSet* view = ensure(m_weekly, this, [this] { return new FGrphSet(m_program); });
    setTitle(*view, title);
    showChild(view);
}

void MDIForm1::openDayState(const QString& title) {
    FStat* view = ensure(m_dayState, this, [this] { return new FStat(m_program); });
    setTitle(*view, title);
    showChild(view);
}

void MDIForm1::openForecasts() {
    FPrev* view = ensure(m_forecasts, this, [this] { return new FPrev(m_program); });
    setTitle(*view, u"Previsioni di "_s + m_program.biorhythm.name);
    showChild(view);
}

void MDIForm1::closeViews() {
    closeIfOpen(m_graph);
    closeIfOpen(m_weekly);
    closeIfOpen(m_dayState);
    closeIfOpen(m_forecasts);
}

/// From the options button and the options window: the record's values, which are those of the open
/// system too. The dialog itself has written the record by then, unless a system is open.
void MDIForm1::openGraphOptions() {
    auto* dialog = new FGrOpt(m_program, this);
    dialog->initialise(graphOptions(m_program.biorhythm));
    connect(dialog, &FGrOpt::GraphOptionsChanged, this, [this](const GraphOptions& options) {
        applyGraphOptionsToSystem(m_program, options);
        if (m_graph != nullptr) {
            m_graph->applyGraphOptions(options);
        }
    });
    dialog->open();
}

/// The same for the week.
void MDIForm1::openWeeklyOptions() {
    auto* dialog = new FGrSetOpt(m_program, this);
    dialog->initialise(weeklyColours(m_program.biorhythm));
    connect(dialog, &FGrSetOpt::WeeklyOptionsChanged, this, [this](const WeeklyColours& colours) {
        applyWeeklyOptionsToSystem(m_program, colours);
        if (m_weekly != nullptr) {
            m_weekly->applyWeeklyOptions(colours);
        }
    });
    dialog->open();
}

void MDIForm1::openOptions() {
    showChild(ensure(m_options, this, [this] { return new FOpt(*this); }));
}

} // namespace quor
