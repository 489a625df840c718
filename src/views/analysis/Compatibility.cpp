#include "views/analysis/Compatibility.h"

#include "core/Cycles.h"
#include "core/Rounding.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// |100 - 200·r/P| for the remainder r; the product stays within 16 bits.
double percentage(std::int16_t difference, Period period) {
    const std::int32_t remainder = difference % days(period);
    const auto product = static_cast<std::int16_t>(remainder * -200);
    return std::abs(static_cast<double>(product) / days(period) + 100);
}

} // namespace

std::optional<Compatibility> compatibility(DateValue birth, DateValue otherBirth) {
    const auto difference = toInt16(std::abs(birth - otherBirth));
    if (!difference) {
        return std::nullopt;
    }
    Compatibility result;
    result.physical = percentage(*difference, Period::physical);
    result.emotional = percentage(*difference, Period::emotional);
    result.intellectual = percentage(*difference, Period::intellectual);
    result.overall =
        static_cast<float>((result.physical + result.emotional + result.intellectual) / 3);
    return result;
}

QString compatibilityText(const Compatibility& compatibility, StateItem panel,
                          const QLocale& locale) {
    const auto line = [&](const QString& subject, double percent) {
        return subject + u": "_s + locale.toString(percent, 'f', 2) + u'%';
    };
    switch (panel) {
    case StateItem::physical:
        return line(u"Compatibilità fisica"_s, compatibility.physical);
    case StateItem::emotional:
        return line(u"Compatibilità emotiva"_s, compatibility.emotional);
    case StateItem::intellectual:
        return line(u"Compatibilità intellettiva"_s, compatibility.intellectual);
    case StateItem::mean:
        break;
    }
    return line(u"Compatibilità"_s, compatibility.overall);
}

QString describeComparison(const Compatibility& compatibility, StateItem panel,
                           const std::array<QString, 2>& names, const QLocale& locale) {
    return compatibilityText(compatibility, panel, locale) + u", tra "_s + names.at(0) + u" e "_s +
           names.at(1);
}

QString describeNoComparison() {
    return u"Nessun confronto: scegliere due bioritmi"_s;
}

} // namespace quor
