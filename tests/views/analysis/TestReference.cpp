#include "views/analysis/TestReference.h"

#include "core/Dates.h"
#include "views/analysis/DayState.h"
#include "views/analysis/Forecast.h"

#include <QFile>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// One line of the table that reference.py writes.
struct Reference {
    std::int32_t days = 0; ///< day count of the calculation date
    std::array<int, 4> shown{};
    QString trends;
    Forecast forecast;
    StateValues values{};
};

std::vector<Reference> loadReferences() {
    QFile file(QString::fromUtf8(QUOR_REFERENCE));
    std::vector<Reference> references;
    if (!file.open(QIODevice::ReadOnly)) {
        return references;
    }
    while (!file.atEnd()) {
        const QStringList fields = QString::fromLatin1(file.readLine()).split(u' ');
        if (fields.size() != 14) {
            return {};
        }
        Reference reference;
        reference.days = dayCount(toDateValue(QDate::fromString(fields[0], Qt::ISODate)),
                                  toDateValue(QDate::fromString(fields[1], Qt::ISODate)));
        for (int i = 0; i < 4; ++i) {
            const auto index = static_cast<std::size_t>(i);
            reference.shown.at(index) = fields[2 + i].toInt();
            reference.values.at(index) = fields[10 + i].trimmed().toDouble() * 1e-9;
        }
        reference.trends = fields[6];
        reference.forecast = {.inversion = fields[7].toInt(),
                              .maximum = fields[8].toInt(),
                              .minimum = fields[9].toInt()};
        references.push_back(reference);
    }
    return references;
}

const std::vector<Reference>& references() {
    static const std::vector<Reference> table = loadReferences();
    return table;
}

} // namespace

void TestReference::valuesAgree() {
    QCOMPARE(references().size(), std::size_t{2000});
    int negative = 0;
    for (const Reference& reference : references()) {
        negative += reference.days < 0 ? 1 : 0;
        const DayState state = dayState(reference.days);
        for (const StateItem item : stateItems) {
            const auto index = static_cast<std::size_t>(item);
            QCOMPARE(shownValue(state.value(item)), reference.shown.at(index));
            QVERIFY(std::abs(state.value(item) - reference.values.at(index)) < 1e-9);
        }
    }
    QVERIFY(negative > 500);
}

void TestReference::trendsAgree() {
    QVERIFY(!references().empty());
    for (const Reference& reference : references()) {
        const DayState state = dayState(reference.days);
        QString trends;
        for (const StateItem item : stateItems) {
            trends += state.trend(item) == Trend::rising ? u'+' : u'-';
        }
        QCOMPARE(trends, reference.trends);
    }
}

void TestReference::forecastsAgree() {
    QVERIFY(!references().empty());
    for (const Reference& reference : references()) {
        if (personForecast(reference.days) != reference.forecast) {
            QFAIL(qPrintable(u"wrong on day %1"_s.arg(reference.days)));
        }
    }
}

} // namespace quor::test
