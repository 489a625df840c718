#include "views/analysis/FPrev.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

std::array<ForecastRow, 3> rowsOf(const Biorhythm& biorhythm) {
    const Forecast forecast = personForecast(dayCountOnCalculationDate(biorhythm));
    return forecastRows(forecast, biorhythm.calculationDate, longDate);
}

} // namespace

FPrev::FPrev(const Program& program, QWidget* parent)
    : ForecastWindow(rowsOf(program.biorhythm), personExtreme, u"mercoledì 30 settembre 2026"_s,
                     parent) {
    setObjectName(u"FPrev"_s);
    setWindowTitle(u"Previsioni"_s);
}

} // namespace quor
