#include "views/analysis/TestSystemReference.h"

#include "core/SystemMean.h"
#include "views/analysis/DayState.h"
#include "views/analysis/Forecast.h"

#include <QFile>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// One line of the table that system_reference.py writes.
struct SystemReference {
    QString births; ///< says which system it is
    std::vector<std::int32_t> dayCounts;
    Forecast forecast;
    DayState state;
};

DateValue toDate(const QString& text) {
    return toDateValue(QDate::fromString(text, Qt::ISODate));
}

std::vector<SystemReference> loadReferences() {
    QFile file(QString::fromUtf8(QUOR_SYSTEM_REFERENCE));
    std::vector<SystemReference> references;
    if (!file.open(QIODevice::ReadOnly)) {
        return references;
    }
    while (!file.atEnd()) {
        const QStringList fields = QString::fromLatin1(file.readLine()).trimmed().split(u' ');
        if (fields.size() != 13) {
            return {};
        }
        AppState state;
        for (const QString& birth : fields[1].split(u',')) {
            state.systemMembers.push_back({.name = {}, .birthDate = toDate(birth)});
            ++state.systemCount;
        }
        const auto days = [&](int field) -> std::optional<std::int32_t> {
            if (fields[field] == u"Mai"_s) {
                return std::nullopt;
            }
            return fields[field].toInt();
        };
        SystemReference reference{
            .births = fields[1],
            .dayCounts = memberDayCounts(state, toDate(fields[0])),
            .forecast = {.inversion = days(2), .maximum = days(3), .minimum = days(4)},
            .state = {}};
        for (int i = 0; i < 4; ++i) {
            reference.state.today.at(static_cast<std::size_t>(i)) = fields[5 + i].toDouble();
            reference.state.yesterday.at(static_cast<std::size_t>(i)) = fields[9 + i].toDouble();
        }
        references.push_back(reference);
    }
    return references;
}

const std::vector<SystemReference>& references() {
    static const std::vector<SystemReference> table = loadReferences();
    return table;
}

} // namespace

void TestSystemReference::statesAgreeToTheLastBit() {
    QCOMPARE(references().size(), std::size_t{300});
    int negative = 0;
    std::size_t largest = 0;
    for (const SystemReference& reference : references()) {
        largest = std::max(largest, reference.dayCounts.size());
        negative += std::ranges::any_of(reference.dayCounts, [](auto day) { return day < 0; });
        if (systemDayState(reference.dayCounts) != reference.state) {
            QFAIL(qPrintable(u"wrong for "_s + reference.births));
        }
    }
    QCOMPARE(largest, std::size_t{40});
    QVERIFY(negative > 100);
}

void TestSystemReference::forecastsAgree() {
    QVERIFY(!references().empty());
    int never = 0;
    for (const SystemReference& reference : references()) {
        never += reference.forecast.maximum ? 0 : 1;
        if (systemForecast(SystemMean(reference.dayCounts)) != reference.forecast) {
            QFAIL(qPrintable(u"wrong for "_s + reference.births));
        }
    }
    // Both answers are there.
    QVERIFY(never > 100 && never < 200);
}

} // namespace quor::test
