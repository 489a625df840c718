#include "views/graph/GraphText.h"

#include "core/Rounding.h"

#include <QStringList>

#include <array>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

QString valueText(const QString& caption, double value) {
    return caption + u": "_s + QString::number(toTenScale(value));
}

QString spanText(const GraphContents& contents, const QLocale& locale) {
    const std::int32_t days = contents.daysAround;
    return u"%1 %2 prima e %1 dopo, da %3 a %4."_s.arg(days).arg(
        days == 1 ? u"giorno"_s : u"giorni"_s, longDate(contents.calculationDate - days, locale),
        longDate(contents.calculationDate + days, locale));
}

QString drawnText(const ShowFlags& drawn) {
    const std::array names{u"fisico"_s, u"emotivo"_s, u"intellettivo"_s, u"media"_s, u"enchance"_s};
    QStringList shown;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (drawn.at(i)) {
            shown << names.at(i);
        }
    }
    return shown.isEmpty() ? u"Nessuna curva disegnata."_s
                           : u"Disegnati: "_s + shown.join(u", "_s) + u'.';
}

} // namespace

DayTexts dayTexts(const DayValues& values) {
    return {.physical = valueText(u"Fisico"_s, values.physical),
            .emotional = valueText(u"Emotivo"_s, values.emotional),
            .intellectual = valueText(u"Intellettivo"_s, values.intellectual),
            .mean = valueText(u"Media"_s, values.mean)};
}

QString startNote(DateValue firstDay, const QLocale& locale) {
    return u"Le curve cominciano ancora dal giorno con cui sono state aperte (%1)."_s.arg(
        shortDate(firstDay, locale));
}

QString describeGraph(const GraphContents& contents, const QLocale& locale) {
    const DayTexts day = dayTexts(contents.values);
    const QStringList values{day.physical, day.emotional, day.intellectual, day.mean};
    QStringList sentences;
    if (!contents.title.isEmpty()) {
        sentences << contents.title + u'.';
    }
    sentences << u"Data di calcolo: "_s + longDate(contents.calculationDate, locale) + u'.'
              << values.join(u", "_s) + u'.' << spanText(contents, locale)
              << drawnText(contents.drawn);
    if (!contents.note.isEmpty()) {
        sentences << contents.note;
    }
    return sentences.join(u' ');
}

QPoint popupPlace(const GraphPlot& plot, const QRect& shown) {
    const QPoint onLine(plot.x(plot.daysAround), plot.baseline);
    return shown.contains(onLine) ? onLine : shown.center();
}

} // namespace quor
