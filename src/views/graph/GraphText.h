#pragma once

#include "core/Biorhythm.h"
#include "views/graph/GraphPlot.h"
#include "views/graph/GraphSource.h"

#include <QLocale>
#include <QRect>
#include <QString>

/// What a graph says in words: in the popup of a day, and to those who cannot see the picture.
namespace quor {

/// "Fisico: -7", "Emotivo: 3", "Intellettivo: 10", "Media: 2": the values of a day times ten,
/// rounded, ties to even.
struct DayTexts {
    QString physical;
    QString emotional;
    QString intellectual;
    QString mean;

    friend bool operator==(const DayTexts&, const DayTexts&) = default;
};

[[nodiscard]] DayTexts dayTexts(const DayValues& values);

/// What a graph says while its span is not the one that its curves were opened with.
/// @param firstDay of that one
[[nodiscard]] QString startNote(DateValue firstDay, const QLocale& locale = QLocale());

/// What a picture shows.
struct GraphContents {
    QString title; ///< whose graph it is: "Grafico di Maria Rossi"
    DateValue calculationDate = 0;
    DayValues values;            ///< of the calculation date, wherever the curves begin
    std::int32_t daysAround = 1; ///< days on each side of it
    ShowFlags drawn{};           ///< by `GraphElement`
    QString note{};              ///< `startNote`, or nothing
};

/// A graph in words: whose it is, the calculation date with its four values (also those whose
/// curves are not drawn), the span, what is drawn, and the note.
[[nodiscard]] QString describeGraph(const GraphContents& contents,
                                    const QLocale& locale = QLocale());

/// Where the popup of the calculation date opens when no mouse says where: on that day's line at
/// value 0, or in the middle of what is to be seen of the picture where the line is not.
/// @param shown the part of the picture that is to be seen
[[nodiscard]] QPoint popupPlace(const GraphPlot& plot, const QRect& shown);

} // namespace quor
