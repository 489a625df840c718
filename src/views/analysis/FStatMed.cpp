#include "views/analysis/FStatMed.h"

#include "core/SystemMean.h"
#include "toolkit/BusyCursor.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

DayState stateOf(const Program& program) {
    const BusyCursor busy;
    return systemDayState(memberDayCounts(program.state, program.biorhythm.calculationDate));
}

} // namespace

FStatMed::FStatMed(const Program& program, QWidget* parent)
    : DayStateWindow(stateOf(program), program.biorhythm, parent) {
    setObjectName(u"FStatMed"_s);
    setWindowTitle(u"Statistiche di sistema"_s);
}

} // namespace quor
