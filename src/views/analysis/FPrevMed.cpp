#include "views/analysis/FPrevMed.h"

#include "core/SystemMean.h"
#include "toolkit/BusyCursor.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

std::array<ForecastRow, 3> rowsOf(const Program& program) {
    const BusyCursor busy;
    const DateValue calculationDate = program.biorhythm.calculationDate;
    const SystemMean system(memberDayCounts(program.state, calculationDate));
    return forecastRows(systemForecast(system), calculationDate, shortDate);
}

} // namespace

FPrevMed::FPrevMed(const Program& program, QWidget* parent)
    : ForecastWindow(rowsOf(program), systemExtreme, shortDate(toDateValue(QDate(2026, 9, 30))),
                     parent) {
    setObjectName(u"FPrevMed"_s);
    setWindowTitle(u"Previsione di sistema"_s);
}

} // namespace quor
