#include "views/analysis/FStat.h"

using namespace Qt::StringLiterals;

namespace quor {

FStat::FStat(const Program& program, QWidget* parent)
    : DayStateWindow(dayState(dayCountOnCalculationDate(program.biorhythm)), program.biorhythm,
                     parent) {
    setObjectName(u"FStat"_s);
    setWindowTitle(u"Stato Odierno"_s);
}

} // namespace quor
