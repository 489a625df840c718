#include "accessibility/EveryWindow.h"

#include "export/FEsp.h"
#include "export/FEspBio.h"
#include "export/FStampaBio.h"
#include "export/PreviewWindow.h"
#include "guidance/FAbout.h"
#include "guidance/FFastStart.h"
#include "guidance/FOpt.h"
#include "guidance/FProcGuid.h"
#include "guidance/HelpCollection.h"
#include "guidance/HelpWindow.h"
#include "shell/ApplicationSetup.h"
#include "shell/FIns.h"
#include "system/FProj.h"
#include "views/analysis/FComp.h"
#include "views/analysis/FPrev.h"
#include "views/analysis/FPrevMed.h"
#include "views/analysis/FStat.h"
#include "views/analysis/FStatMed.h"
#include "views/graph/FGrOpt.h"
#include "views/graph/FGrSetOpt.h"
#include "views/graph/FGrph.h"
#include "views/graph/FGrphMed.h"
#include "views/graph/FGrphSet.h"

#include "export/PrintingFixture.h"

using namespace Qt::StringLiterals;

namespace quor::test {

const std::vector<WindowEntry>& everyWindow() {
    using C = Command;
    static const std::vector<WindowEntry> all{
        {"quor::MDIForm1",
         [](WindowScene& s) -> QWidget* {
             s.enter();
             s.frame.run(C::mnuGrafico);
             return &s.frame;
         }},
        {"quor::FGrph",
         [](WindowScene& s) {
             // With other days than it was opened with, about which it has more to say.
             QWidget* window = s.afterCommand<FGrph>(C::mnuGrafico);
             GraphOptions options = graphOptions(s.program.biorhythm);
             options.graphDaysAdjust = 10;
             qobject_cast<FGrph*>(window)->applyGraphOptions(options);
             return window;
         }},
        {"quor::FGrphSet",
         [](WindowScene& s) { return s.afterCommand<FGrphSet>(C::mnuStatoSettimanale); }},
        {"quor::FStat", [](WindowScene& s) { return s.afterCommand<FStat>(C::mnuStatoOdierno); }},
        {"quor::FPrev", [](WindowScene& s) { return s.afterCommand<FPrev>(C::mnuPrevisioni); }},
        {"quor::FGrOpt", [](WindowScene& s) { return s.afterCommand<FGrOpt>(C::graphOptions); }},
        {"quor::FGrSetOpt",
         [](WindowScene& s) { return s.afterCommand<FGrSetOpt>(C::weeklyOptions); }},
        {"quor::FOpt", [](WindowScene& s) { return s.afterCommand<FOpt>(C::mnuOpzioni); }},
        {"quor::FEspBio", [](WindowScene& s) { return s.afterCommand<FEspBio>(C::mnuEsporta); }},
        {"quor::FStampaBio",
         [](WindowScene& s) { return s.afterCommand<FStampaBio>(C::mnuStampa); }},
        {"quor::FAbout", [](WindowScene& s) { return s.afterCommand<FAbout>(C::mnuAbout); }},
        {"quor::FFastStart",
         [](WindowScene& s) { return s.afterCommand<FFastStart>(C::mnuProcedureGuidate); }},
        {"quor::FIns",
         [](WindowScene& s) {
             s.frame.run(C::mnuCalcola);
             return s.open<FIns>();
         }},
        {"quor::FProcGuid",
         [](WindowScene& s) {
             s.frame.startTour(1);
             return s.open<FProcGuid>();
         }},
        {"quor::FProj",
         [](WindowScene& s) {
             s.enterSystem();
             return s.open<FProj>();
         }},
        {"quor::FGrphMed",
         [](WindowScene& s) { return s.afterSystemButton<FGrphMed>(u"Command5"_s); }},
        {"quor::FStatMed",
         [](WindowScene& s) { return s.afterSystemButton<FStatMed>(u"Command6"_s); }},
        {"quor::FPrevMed",
         [](WindowScene& s) { return s.afterSystemButton<FPrevMed>(u"Command4"_s); }},
        {"quor::FComp", [](WindowScene& s) { return s.afterSystemButton<FComp>(u"Command8"_s); }},
        {"quor::FEsp",
         [](WindowScene& s) {
             auto* window = new FEsp(&s.frame);
             window->startRun(4, u"Esportazione"_s);
             window->beginProduct(u"Anna"_s);
             return s.keep(window);
         }},
        {"quor::PreviewWindow",
         [](WindowScene& s) {
             auto* window = new PreviewWindow(&s.frame);
             window->setDocument({.pdf = pdfWithPages({u"uno"_s, u"due"_s}), .name = u"Anna"_s});
             return s.keep(window);
         }},
        {"quor::HelpWindow",
         [](WindowScene& s) {
             auto* window = new HelpWindow(
                 std::make_unique<HelpCollection>(QStringLiteral(QUOR_HELP_FOLDER "/Quor.qhc")));
             window->showPage({});
             return s.keep(window);
         }},
    };
    return all;
}

QWidget* showWindow(const WindowEntry& entry, WindowScene& scene) {
    QWidget* window = entry.open(scene);
    QCoreApplication::processEvents();
    if (window != nullptr) {
        window->window()->activateWindow();
        QCoreApplication::processEvents();
    }
    return window;
}

} // namespace quor::test
