#include "export/SummaryPage.h"

#include "core/Clock.h"
#include "export/HtmlText.h"
#include "views/graph/WeekState.h"

#include <array>

namespace quor {

namespace {

/// Adds line after line to the page.
class SummaryWriter {
  public:
    SummaryWriter(const Biorhythm& biorhythm, const QString& prefix, PageVariant variant,
                  const QLocale& locale)
        : m_biorhythm(biorhythm)
        , m_prefix(prefix)
        , m_forScreen(variant == PageVariant::screen)
        , m_locale(locale) {}

    void writeHead() {
        line("<DOCTYPE HTML PUBLIC>");
        line("<HTML>");
        line("<HEAD>");
        line("<TITLE>Riepilogo dati bioritmici di " + htmlText(m_biorhythm.name) + "</TITLE>");
        line(R"(<META name="generator" content="Quor v1.0">)");
        line("<STYLE>");
        line("BODY    { font-size: 12pt; background-color: #DDDDFF; color: #000000; margin: 5%; }");
        line("TABLE   { font-size: 12pt; border-width: 0px; }");
        line("A:link,A:visited,A:active    { text-decoration: underline; font-size: 12pt; "
             "color: #0000FF; background-color: transparent; }");
        line("A:hover     { text-decoration: none; font-size: 12pt; color: #2222FF; "
             "background-color: transparent;}");
        line("TABLE.c1    { font-size: 12pt; background-color: #CCCCFF; color: #000000; "
             "border-width: 1px; border-color: #000000; border-style: solid; }");
        line(".c1 TH      { background-color: #BBBBFF; color: #000000; font-weight: normal; "
             "text-decoration: none; border-bottom: 1px #000000 solid; "
             "border-right: 1px #000000 solid; border-left: 1px #FFFFFF solid; "
             "border-top: 1px #FFFFFF solid;}");
        line("</STYLE>");
        line("</HEAD>");
        line("<BODY>");
    }

    void writePerson() {
        openTable();
        writeHeading("Dati personali");
        line("<TR><TD><B>Nome: </B>" + htmlText(m_biorhythm.name) + "</TD></TR>");
        line("<TR><TD><B>Data di nascita: </B>" + longText(m_biorhythm.birthDate) + "</TD></TR>");
        line("<TR><TD><B>Bioritmo calcolato in data: </B>" + longText(m_biorhythm.calculationDate) +
             "</TD></TR>");
        line("</TABLE>");
    }

    void writeGraph() {
        openSection();
        const std::int32_t around = daysAround(m_biorhythm.graphDaysAdjust);
        writeHeading("Grafico dal " + shortText(m_biorhythm.calculationDate - around) + " al " +
                     shortText(m_biorhythm.calculationDate + around));
        line("<TR><TD align=\"center\">" + picture(graphFile(m_prefix)) + "</TD></TR>");
        openInnerTable();
        constexpr std::array labels{"Fisica", "Emotiva", "Intellettiva", "Media"};
        for (std::size_t i = 0; i < labels.size(); ++i) {
            writeLegend("25%", "center", m_biorhythm.curveColours.at(i), labels.at(i), i,
                        labels.size());
        }
        closeSection();
    }

    void writeWeek() {
        openSection();
        const DateValue monday = weekOf(m_biorhythm).weekStart;
        writeHeading("Grafico per la settimana dal " + shortText(monday) + " al " +
                     shortText(monday + daysInWeek - 1));
        openInnerTable();
        constexpr std::array cycles{WeekRow::physical, WeekRow::emotional, WeekRow::intellectual};
        for (std::size_t i = 0; i < cycles.size(); ++i) {
            writeCell(R"(width="33%" align="center")", picture(weekFile(m_prefix, cycles.at(i))), i,
                      cycles.size());
        }
        writeCell(R"(colspan="3" align="center")", picture(weekFile(m_prefix, WeekRow::mean)), 0,
                  1);
        constexpr std::array labels{"Giorni critici", "Giorni stabili", "Giorni ottimi"};
        constexpr std::array sides{"left", "center", "right"};
        for (std::size_t i = 0; i < labels.size(); ++i) {
            writeLegend("33%", sides.at(i), m_biorhythm.weeklyColours.at(i), labels.at(i), i,
                        labels.size());
        }
        closeSection();
    }

    void writeFoot() {
        line("<P align=\"right\">Disegnato da Quor v1.0 - " + shortText(today()) + "</P>");
        line("</BODY>");
        line("</HTML>");
    }

    [[nodiscard]] QByteArray takePage() { return std::move(m_page); }

  private:
    void line(const QByteArray& text) {
        m_page += text;
        m_page += "\r\n";
    }

    [[nodiscard]] QByteArray longText(DateValue date) const {
        return htmlText(longDate(date, m_locale));
    }
    [[nodiscard]] QByteArray shortText(DateValue date) const {
        return htmlText(shortDate(date, m_locale));
    }

    [[nodiscard]] QByteArray picture(const QString& fileName) const {
        return "<IMG src=\"" + htmlAddress(fileName) + R"(" alt="" border="1">)";
    }

    void openTable() { line(R"(<TABLE width="100%" class="c1">)"); }

    void openSection() {
        if (m_forScreen) {
            line("<P>&nbsp;</P>");
        }
        openTable();
    }

    void openInnerTable() { line("<TR><TD><TABLE width=\"100%\">"); }

    void closeSection() {
        line("</TABLE></TD></TR>");
        line("</TABLE>");
    }

    void writeHeading(const QByteArray& text) { line("<TR><TH><B>" + text + "</B></TH></TR>"); }

    /// One cell a line; the first of a row opens it and the last closes it.
    void writeCell(const QByteArray& attributes, const QByteArray& content, std::size_t index,
                   std::size_t cells) {
        line((index == 0 ? "<TR><TD " : "<TD ") + attributes + '>' + content +
             (index + 1 == cells ? "</TD></TR>" : "</TD>"));
    }

    void writeLegend(const QByteArray& width, const QByteArray& side, Colour colour,
                     const QByteArray& label, std::size_t index, std::size_t cells) {
        QByteArray attributes = "width=\"" + width + "\" align=\"" + side + '"';
        QByteArray content = "<B>" + label + "</B>";
        const QByteArray hex = '#' + colourHex(colour);
        if (m_forScreen) {
            attributes += " bgcolor=\"" + hex + '"';
        } else {
            content = "<B style=\"color:" + hex + ";\">" + label + "</B>";
        }
        writeCell(attributes, content, index, cells);
    }

    const Biorhythm& m_biorhythm;
    const QString& m_prefix;
    bool m_forScreen;
    const QLocale& m_locale;
    QByteArray m_page;
};

} // namespace

QByteArray summaryPage(const Biorhythm& biorhythm, const SummarySections& sections,
                       const QString& prefix, PageVariant variant, const QLocale& locale) {
    SummaryWriter writer(biorhythm, prefix, variant, locale);
    writer.writeHead();
    writer.writePerson();
    if (sections.graph) {
        writer.writeGraph();
    }
    if (sections.weekly) {
        writer.writeWeek();
    }
    writer.writeFoot();
    return writer.takePage();
}

QByteArray colourHex(Colour colour) {
    const QByteArray digits =
        QByteArray::number(static_cast<std::uint32_t>(colour), 16).toUpper().rightJustified(6, '0');
    return digits.last(2) + digits.sliced(2, 2) + digits.first(2);
}

} // namespace quor
