#include "views/graph/FGrph.h"

#include "core/Cycles.h"
#include "core/Rounding.h"
#include "toolkit/DrawingPainter.h"
#include "views/graph/FGrOpt.h"
#include "views/graph/GraphDrawing.h"

#include "ui_FGrph.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

const QString& generalHelp() {
    static const QString text =
        u"--> La finestra grafico mostra l'andamento delle curve scelte in un arco di giorni "
        u"attorno "
        "a quello utilizzato nella data di calcolo.\n\n"
        "--> Cliccando col tasto destro sul grafico apparirà un piccolo menu con le statistiche "
        "parziali del punto prescelto.\n\n"
        "--> Si possono selezionare le curve desiderate nel grafico nel riquadro in basso a "
        "destra. "
        "Sarà necessario premere il tasto Aggiorna perchè i cambiamenti vengano effettuati."_s;
    return text;
}

QString elementHelp(GraphElement element) {
    switch (element) {
    case GraphElement::physical:
        return u"--> La curva fisica rappresenta lo stato fisico della persona in esame."_s;
    case GraphElement::emotional:
        return u"--> La curva emotiva rappresenta lo stato emotivo della persona in esame."_s;
    case GraphElement::intellectual:
        return u"--> La curva intellettiva rappresenta lo stato intellettivo della persona in "
               "esame."_s;
    case GraphElement::mean:
        return u"--> La curva media traccia una media matematica delle altre tre curve."_s;
    case GraphElement::enhance:
        break;
    }
    return u"--> La modalità enchance visualizza a barre colorate lo stato del giorno. Il colore "
           "tende allo stato prevalente quel giorno, quindi una barra molto chiara fa presupporre "
           "un "
           "buono stato bioritmico."_s;
}

QString tenScaleText(double value) {
    return QString::number(toTenScale(value));
}

} // namespace

FGrph::FGrph(Program& program, Frame& frame, QWidget* parent)
    : ChildWindow(parent)
    , m_program(program)
    , m_frame(frame)
    , m_ui(std::make_unique<Ui::FGrph>()) {
    const Biorhythm& biorhythm = program.biorhythm;
    m_options = graphOptions(biorhythm);
    m_showFlags = biorhythm.showFlags();
    m_calculationDate = biorhythm.calculationDate;
    m_daysAround = daysAround(m_options.graphDaysAdjust);
    m_startDayCount = biorhythm.daysAtGraphStart + GRAPH_BASE_DAYS - m_daysAround;

    m_ui->setupUi(this);
    m_checks = {m_ui->Check1, m_ui->Check2, m_ui->Check3, m_ui->Check4, m_ui->Check5};
    for (std::size_t i = 0; i < m_checks.size(); ++i) {
        m_checks.at(i)->setChecked(m_showFlags.at(i));
        connect(m_checks.at(i), &QCheckBox::clicked, this,
                [this, i](bool shown) { chooseElement(static_cast<GraphElement>(i), shown); });
    }
    colourCheckBoxes();
    connect(m_ui->Command1, &QPushButton::clicked, this, [this] { redraw(m_startDayCount); });
    connect(m_ui->Picture1, &PictureBox::resized, this, &FGrph::layOutPlot);
    connect(m_ui->Picture1, &PictureBox::pressed, this, &FGrph::pressed);
    m_ui->Check1->setFocus();
    layOutWindow();
}

FGrph::~FGrph() = default;

QSize FGrph::sizeHint() const {
    return QWidget::sizeHint().expandedTo({760, 520});
}

void FGrph::SetOptions() {
    auto* dialog = new FGrOpt(m_program, this);
    dialog->initialise(m_options);
    connect(dialog, &FGrOpt::GraphOptionsChanged, this, &FGrph::applyGraphOptions);
    dialog->open();
}

void FGrph::applyGraphOptions(const GraphOptions& options) {
    m_options = options;
    colourCheckBoxes();
    layOutWindow();
    layOutPlot();
}

void FGrph::changeEvent(QEvent* event) {
    ChildWindow::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        layOutPlot(); // the numbers at the bottom stand where the height of the text puts them
    }
}

void FGrph::resizeEvent(QResizeEvent* event) {
    ChildWindow::resizeEvent(event);
    layOutWindow();
}

/// The dates below the picture; the form's layout places everything.
void FGrph::layOutWindow() {
    m_daysAround = daysAround(m_options.graphDaysAdjust);
    m_ui->Text1->setText(longDate(m_calculationDate));
    m_ui->Text2->setText(longDate(m_calculationDate - m_daysAround));
    m_ui->Text3->setText(longDate(m_calculationDate + m_daysAround));
}

void FGrph::layOutPlot() {
    m_plot = layOutGraph(m_ui->Picture1->size(), m_daysAround);
    redraw(m_startDayCount);
}

void FGrph::redraw(std::int32_t startDayCount) {
    const GraphStyle style{.show = m_showFlags,
                           .colours = m_options.colours,
                           .dayIndexPosition = m_options.dayIndexPosition,
                           .calculationDate = m_calculationDate,
                           .textHeight = m_ui->Picture1->textHeight()};
    m_ui->Picture1->setDrawing(
        drawGraph(personSeries(startDayCount, m_plot.daysAround), m_plot, style));
    m_ui->Text4->setPlainText(generalHelp());
}

/// Each box that stands for a curve wears its colour.
void FGrph::colourCheckBoxes() {
    for (std::size_t i = 0; i < m_options.colours.size(); ++i) {
        const QColor background = toQColor(m_options.colours.at(i));
        const QColor foreground = readableOn(background);
        QCheckBox* check = m_checks.at(i);
        QPalette palette = check->palette();
        palette.setColor(QPalette::Window, background);
        palette.setColor(QPalette::WindowText, foreground);
        check->setPalette(palette);
        check->setBackgroundRole(QPalette::Window);
        check->setAutoFillBackground(true);
    }
}

void FGrph::chooseElement(GraphElement element, bool shown) {
    m_showFlags.at(static_cast<std::size_t>(element)) = shown;
    m_ui->Text4->setPlainText(elementHelp(element) +
                              u"\n\n--> Perchè i cambiamenti diventino definitivi nel grafico "
                              "occorre premere il tasto Aggiorna."_s);
}

void FGrph::pressed(Qt::MouseButton button, QPoint position) {
    if (button != Qt::RightButton) {
        return;
    }
    const auto day = m_plot.dayAt(position.x());
    if (!day) {
        return;
    }
    const std::int32_t clicked = m_startDayCount + *day;
    const auto value = [clicked](Period period) {
        return tenScaleText(cycleValue(clicked, period));
    };
    m_frame.showDayPopup({.day = u"Giorno "_s + shortDate(m_calculationDate - m_daysAround + *day),
                          .physical = u"Fisico: "_s + value(Period::physical),
                          .emotional = u"Emotivo: "_s + value(Period::emotional),
                          .intellectual = u"Intellettivo: "_s + value(Period::intellectual),
                          .mean = u"Media: "_s + tenScaleText(cycleMean(clicked))},
                         m_ui->Picture1->mapToGlobal(position));
}

} // namespace quor
