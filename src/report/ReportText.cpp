#include "report/ReportText.h"

#include "core/Printable.h"
#include "report/CompatibilityMatrix.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// Of a terminal.
constexpr qsizetype pageWidth = 80;

/// Members of a system whose matrix of two by two still fits the width of a terminal.
constexpr std::size_t largestSquare = 12;

constexpr std::array itemNames{u"Stato fisico:", u"Stato emotivo:", u"Stato intellettivo:",
                               u"Media:"};

/// Texts of the width of a column, and what stands for the characters that a terminal may lack.
class TextPage {
  public:
    TextPage(TextCharset charset, ReportStream& stream, const QLocale& locale)
        : m_charset(charset)
        , m_stream(stream)
        , m_locale(locale) {}

    void line(const QString& text = {}) {
        qsizetype length = text.size();
        while (length > 0 && text.at(length - 1) == u' ') {
            --length;
        }
        m_stream.write(encodeText(text.first(length), m_charset));
        m_stream.write('\n');
    }
    void heading(const QString& text) {
        line();
        line(text);
        line(QString(text.size(), has(u'─') ? u'─' : u'-'));
    }

    [[nodiscard]] QString arrow(Trend trend) const {
        const bool rising = trend == Trend::rising;
        if (m_charset == TextCharset::utf8) {
            return rising ? u"↑"_s : u"↓"_s;
        }
        return rising ? u"^"_s : u"v"_s;
    }

    /// A bar to the left or to the right of the zero line, one character for each unit.
    [[nodiscard]] QString bar(int value) const {
        constexpr int full = 10;
        const QString marks(std::abs(value), has(u'█') ? u'█' : u'#');
        const QString zero(1, has(u'│') ? u'│' : u'|');
        return value < 0 ? marks.rightJustified(full) + zero : QString(full, u' ') + zero + marks;
    }

    /// Cut to the width, the cut shown; filled up with blanks.
    [[nodiscard]] QString fitted(const QString& text, qsizetype width) const {
        const QString composed = text.normalized(QString::NormalizationForm_C);
        if (composed.size() <= width) {
            return composed.leftJustified(width);
        }
        const QString end = has(u'…') ? u"…"_s : u"..."_s;
        return composed.first(width - end.size()) + end;
    }

    [[nodiscard]] const QLocale& locale() const { return m_locale; }
    [[nodiscard]] bool hasFailed() const { return m_stream.hasFailed(); }

  private:
    /// Whether the terminal has this one of the characters beyond letters.
    [[nodiscard]] bool has(char16_t /*character*/) const { return m_charset == TextCharset::utf8; }

    TextCharset m_charset;
    ReportStream& m_stream;
    QLocale m_locale;
};

QString daysText(std::int32_t days) {
    return days == 1 ? u"1 giorno"_s : u"%1 giorni"_s.arg(days);
}

/// What the windows' forecasts show, and in which words the days are told here.
QString waitText(std::optional<std::int32_t> days) {
    if (!days) {
        return {};
    }
    return *days == 0 ? u"oggi"_s : u"tra "_s + daysText(*days);
}

void writeState(TextPage& page, const DayState& state) {
    for (const StateItem item : stateItems) {
        const int shown = shownValue(state.value(item));
        const QString name =
            QString::fromUtf16(itemNames.at(static_cast<std::size_t>(item))).leftJustified(20);
        page.line(u"  %1%2 %3  %4"_s.arg(name, QString::number(shown).rightJustified(3),
                                         page.arrow(state.trend(item)), page.bar(shown)));
    }
}

void writeForecast(TextPage& page, const Forecast& forecast, int extreme, DateValue day,
                   DateText dateText) {
    const std::array names{u"Prossima inversione (Media = 0):"_s,
                           u"Prossimo massimo (Media = %1):"_s.arg(extreme),
                           u"Prossimo minimo (Media = -%1):"_s.arg(extreme)};
    const std::array days{forecast.inversion, forecast.maximum, forecast.minimum};
    const auto rows = forecastRows(forecast, day, dateText, page.locale());
    qsizetype widest = 0;
    for (const ForecastRow& row : rows) {
        widest = std::max(widest, row.date.size());
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        page.line(u"  %1 %2  %3"_s.arg(names.at(i).leftJustified(32),
                                       rows.at(i).date.leftJustified(widest),
                                       waitText(days.at(i))));
    }
}

void writePerson(TextPage& page, const ReportSubject& subject) {
    const ReportedPerson person = reportedPerson(subject.members.front(), subject.firstDay);
    const DateValue day = subject.firstDay;
    page.line(page.fitted(u"Bioritmo di "_s + printable(person.name), pageWidth));
    page.line();
    page.line(u"  Data di nascita:      "_s + longDate(person.birthDay, page.locale()));
    page.line(u"  Data di calcolo:      "_s + longDate(day, page.locale()));
    page.line(u"  Giorni dalla nascita: "_s + QString::number(person.dayCount));
    page.heading(u"Stato del giorno"_s);
    writeState(page, person.state.shown);
    page.heading(u"Previsioni"_s);
    writeForecast(page, person.state.forecast, personExtreme, day, longDate);
}

/// The members, a line each: their states, then their forecasts.
void writeMembers(TextPage& page, const ReportSubject& system) {
    constexpr qsizetype nameWidth = 24;
    const auto head = [&](const QString& number, const QString& name) {
        return u"%1  %2  "_s.arg(number.rightJustified(5), page.fitted(name, nameWidth));
    };
    page.heading(u"Stato del giorno di ogni membro"_s);
    page.line(head(u"N."_s, u"Nome"_s) + u"Nascita     Fisico Emot.  Intel. Media"_s);
    int number = 0;
    for (const SystemMember& member : system.members) {
        if (page.hasFailed()) {
            return;
        }
        const DayState state = dayState(dayCount(member.birthDate, system.firstDay));
        QString text = head(QString::number(++number), printable(member.name)) +
                       shortDate(member.birthDate, page.locale()) + u"  "_s;
        for (const StateItem item : stateItems) {
            text += QString::number(shownValue(state.value(item))).rightJustified(4) + u' ' +
                    page.arrow(state.trend(item)) + u' ';
        }
        page.line(text);
    }

    page.heading(u"Previsioni di ogni membro"_s);
    page.line(head(u"N."_s, u"Nome"_s) + u"Inversione  Massimo (10)   Minimo (-10)"_s);
    number = 0;
    for (const SystemMember& member : system.members) {
        if (page.hasFailed()) {
            return;
        }
        const Forecast forecast = personForecast(dayCount(member.birthDate, system.firstDay));
        const auto rows = forecastRows(forecast, system.firstDay, shortDate, page.locale());
        page.line(head(QString::number(++number), printable(member.name)) + rows[0].date + u"  "_s +
                  rows[1].date + u"     "_s + rows[2].date);
    }
}

/// The overall percentages, everybody with everybody.
void writeSquare(TextPage& page, const ReportSubject& system, const CompatibilityMatrix& matrix) {
    constexpr qsizetype nameWidth = 14;
    constexpr qsizetype cellWidth = 5;
    const auto members = static_cast<std::uint16_t>(system.members.size());
    QString head(nameWidth + 4, u' ');
    for (int i = 1; i <= members; ++i) {
        head += QString::number(i).rightJustified(cellWidth);
    }
    page.line(head);
    for (std::uint16_t row = 0; row < members; ++row) {
        QString text = u"%1  %2"_s.arg(QString::number(row + 1).rightJustified(2),
                                       page.fitted(printable(system.members[row].name), nameWidth));
        for (std::uint16_t column = 0; column < members; ++column) {
            QString cell = u"-"_s;
            if (row != column) {
                const auto value =
                    matrix.at({.first = std::min(row, column), .second = std::max(row, column)});
                cell = value ? page.locale().toString(static_cast<double>(value->overall), 'f', 0)
                             : u"?"_s;
            }
            text += cell.rightJustified(cellWidth);
        }
        page.line(text);
    }
    page.line();
}

void writeCompatibility(TextPage& page, const ReportSubject& system) {
    page.heading(u"Compatibilità"_s);
    if (system.members.size() > CompatibilityMatrix::maximumMembers) {
        page.line(u"  Omessa: il sistema ha più di %1 membri."_s.arg(
            CompatibilityMatrix::maximumMembers));
        return;
    }
    if (system.members.size() < 2) {
        page.line(u"  Il sistema ha un solo membro."_s);
        return;
    }
    const CompatibilityMatrix matrix(system.members);
    if (system.members.size() <= largestSquare) {
        writeSquare(page, system, matrix);
    }
    constexpr qsizetype nameWidth = 22;
    constexpr qsizetype percentWidth = 8;
    page.line(page.fitted(u"  Dalla più alta"_s, 2 * nameWidth + 2) +
              u"  Totale  Fisica Emotiva  Intel."_s);
    const auto name = [&](std::size_t member) {
        return page.fitted(printable(system.members[member].name), nameWidth);
    };
    matrix.visitInOrder([&](const auto& value, std::span<const CompatibilityMatrix::Pair> pairs) {
        QString percentages;
        const auto add = [&](auto Compatibility::*part) {
            const QString text =
                value ? page.locale().toString(static_cast<double>((*value).*part), 'f', 2)
                      : u"?"_s;
            percentages += text.rightJustified(percentWidth);
        };
        add(&Compatibility::overall);
        add(&Compatibility::physical);
        add(&Compatibility::emotional);
        add(&Compatibility::intellectual);
        for (const CompatibilityMatrix::Pair pair : pairs) {
            page.line(u"%1  %2"_s.arg(name(pair.first), name(pair.second)) + percentages);
        }
        return !page.hasFailed();
    });
}

void writeSystem(TextPage& page, const ReportSubject& system) {
    const ReportedState mean = reportedMean(system);
    page.line(page.fitted(u"Sistema "_s + printable(system.name), pageWidth));
    page.line();
    page.line(u"  Membri:          %1"_s.arg(system.members.size()));
    page.line(u"  Data di calcolo: "_s + longDate(system.firstDay, page.locale()));
    page.heading(u"Stato del giorno della media"_s);
    writeState(page, mean.shown);
    page.heading(u"Previsioni della media"_s);
    writeForecast(page, mean.forecast, systemExtreme, system.firstDay, shortDate);
    writeMembers(page, system);
    writeCompatibility(page, system);
}

} // namespace

void writeText(const ReportSubject& subject, TextCharset charset, ReportStream& stream,
               const QLocale& locale) {
    TextPage page(charset, stream, locale);
    subject.isSystem ? writeSystem(page, subject) : writePerson(page, subject);
}

} // namespace quor
