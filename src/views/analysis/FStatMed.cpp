#include "views/analysis/FStatMed.h"

#include "core/SystemMean.h"

using namespace Qt::StringLiterals;

namespace quor {

FStatMed::FStatMed(const Program& program, QWidget* parent)
    : DayStateWindow(
          systemDayState(memberDayCounts(program.state, program.biorhythm.calculationDate)),
          program.biorhythm, parent) {
    setObjectName(u"FStatMed"_s);
    setWindowTitle(u"Statistiche di sistema"_s);
}

} // namespace quor
