#include "views/graph/GraphWindow.h"

#include "toolkit/BusyCursor.h"
#include "toolkit/WindowTitle.h"
#include "toolkit/WornColour.h"
#include "views/graph/FGrOpt.h"
#include "views/graph/GraphDrawing.h"
#include "views/graph/GraphText.h"
#include "views/graph/PictureFonts.h"

#include <optional>

#include "ui_GraphWindow.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr QSize startingSize{760, 520};

} // namespace

GraphWindow::GraphWindow(Program& program, Frame& frame, std::unique_ptr<GraphSource> source,
                         GraphWording wording, QWidget* parent)
    : ChildWindow(parent)
    , m_program(program)
    , m_frame(frame)
    , m_source(std::move(source))
    , m_wording(std::move(wording))
    , m_ui(std::make_unique<Ui::GraphWindow>()) {
    const Biorhythm& biorhythm = program.biorhythm;
    m_options = graphOptions(biorhythm);
    m_showFlags = biorhythm.showFlags();
    m_ofSystem = program.state.systemOpen;
    m_calculationDate = biorhythm.calculationDate;
    compute();

    m_ui->setupUi(this);
    m_checks = {m_ui->Check1, m_ui->Check2, m_ui->Check3, m_ui->Check4, m_ui->Check5};
    for (std::size_t i = 0; i < m_checks.size(); ++i) {
        m_checks.at(i)->setChecked(m_showFlags.at(i));
        connect(m_checks.at(i), &QCheckBox::toggled, this,
                [this, i](bool shown) { chooseElement(static_cast<GraphElement>(i), shown); });
    }
    colourCheckBoxes();
    connect(m_ui->Command1, &QPushButton::clicked, this, &GraphWindow::redraw);
    connect(m_ui->Command2, &QPushButton::clicked, this, &GraphWindow::reopen);
    connect(m_ui->Picture1, &PictureBox::resized, this, &GraphWindow::layOutPlot);
    connect(m_ui->Picture1, &PictureBox::pressed, this, &GraphWindow::pressed);
    connect(m_ui->Picture1, &PictureBox::menuRequested, this, &GraphWindow::openMenuByKeyboard);
    // Tiling gives a window less than it needs. A text narrower than its own scroll bar would show
    // and hide the bar by turns, for ever.
    m_ui->Text4->setMinimumWidth(m_ui->Text4->minimumSizeHint().width());
    m_ui->Check1->setFocus();
    layOutWindow();
    showNote();
}

GraphWindow::~GraphWindow() = default;

QSize GraphWindow::sizeHint() const {
    return QWidget::sizeHint().expandedTo(forFont(startingSize));
}

void GraphWindow::SetOptions() {
    auto* dialog = new FGrOpt(m_program, this);
    dialog->initialise(m_options);
    connect(dialog, &FGrOpt::GraphOptionsChanged, this, &GraphWindow::applyGraphOptions);
    dialog->open();
}

void GraphWindow::applyGraphOptions(const GraphOptions& options) {
    const bool spanChanged = options.graphDaysAdjust != m_options.graphDaysAdjust;
    m_options = options;
    if (spanChanged) {
        compute();
    }
    colourCheckBoxes();
    layOutWindow();
    showNote();
    layOutPlot();
}

QString GraphWindow::note() const {
    const std::int32_t start = m_source->startingSpan(m_daysAround);
    return start == m_daysAround ? QString() : startNote(m_calculationDate - start);
}

void GraphWindow::showNote() {
    const QString text = note();
    m_ui->Label1->setText(text);
    m_ui->Command2->setAccessibleDescription(text);
    m_ui->Note->setVisible(!text.isEmpty());
}

/// The calculation date may have moved, unless it is that of other data by now: a member's graph
/// outlives its system.
void GraphWindow::reopen() {
    const bool sameData = m_program.state.systemOpen == m_ofSystem;
    const DateValue date = sameData ? m_program.biorhythm.calculationDate : m_calculationDate;
    m_source->restart(m_daysAround, dayCount(m_calculationDate, date));
    m_calculationDate = date;
    compute();
    m_ui->Check1->setFocus(); // the button goes
    layOutWindow();
    showNote();
    layOutPlot();
}

void GraphWindow::changeEvent(QEvent* event) {
    ChildWindow::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        layOutPlot(); // the numbers at the bottom stand where the height of the text puts them
    } else if (event->type() == QEvent::WindowTitleChange) {
        describePicture(); // the title says whose graph it is
    }
}

void GraphWindow::resizeEvent(QResizeEvent* event) {
    ChildWindow::resizeEvent(event);
    layOutWindow();
}

void GraphWindow::compute() {
    const std::int32_t span = daysAround(m_options.graphDaysAdjust);
    std::optional<BusyCursor> busy;
    if (m_source->takesLong(span)) {
        busy.emplace();
    }
    m_series = m_source->series(span);
}

/// The dates below the picture; the form's layout places everything.
void GraphWindow::layOutWindow() {
    m_daysAround = daysAround(m_options.graphDaysAdjust);
    m_ui->Text1->setValue(longDate(m_calculationDate));
    m_ui->Text2->setValue(longDate(m_calculationDate - m_daysAround));
    m_ui->Text3->setValue(longDate(m_calculationDate + m_daysAround));
}

void GraphWindow::layOutPlot() {
    m_plot = layOutGraph(m_ui->Picture1->size(), m_daysAround);
    m_ui->Picture1->setFont(fontOfNumbers(font(), m_plot));
    redraw();
}

void GraphWindow::redraw() {
    const GraphStyle style{.show = m_showFlags,
                           .colours = m_options.colours,
                           .dayIndexPosition = m_options.dayIndexPosition,
                           .calculationDate = m_calculationDate,
                           .textHeight = m_ui->Picture1->textHeight()};
    m_ui->Picture1->setDrawing(drawGraph(m_series, m_plot, style));
    m_drawnFlags = m_showFlags;
    describePicture();
    m_ui->Text4->setPlainText(generalHelp());
}

/// Each box that stands for a curve wears its colour.
void GraphWindow::colourCheckBoxes() {
    for (std::size_t i = 0; i < m_options.colours.size(); ++i) {
        wearColour(*m_checks.at(i), m_options.colours.at(i));
    }
}

QString GraphWindow::generalHelp() const {
    QStringList paragraphs{
        u"--> La finestra grafico mostra l'andamento delle curve scelte in un arco di giorni "
        "attorno a quello utilizzato nella data di calcolo."_s,
        m_wording.about,
        u"--> Cliccando col tasto destro sul grafico apparirà un piccolo menu con le statistiche "
        "parziali del punto prescelto."_s,
        u"--> Si possono selezionare le curve desiderate nel grafico nel riquadro in basso a "
        "destra. Sarà necessario premere il tasto Aggiorna perchè i cambiamenti vengano "
        "effettuati."_s};
    paragraphs.removeAll(QString());
    return paragraphs.join(u"\n\n"_s);
}

QString GraphWindow::elementHelp(GraphElement element) const {
    switch (element) {
    case GraphElement::physical:
        return u"--> La curva fisica rappresenta lo stato fisico %1."_s.arg(m_wording.whose);
    case GraphElement::emotional:
        return u"--> La curva emotiva rappresenta lo stato emotivo %1."_s.arg(m_wording.whose);
    case GraphElement::intellectual:
        return u"--> La curva intellettiva rappresenta lo stato intellettivo %1."_s.arg(
            m_wording.whose);
    case GraphElement::mean:
        return u"--> La curva media traccia una media matematica delle altre tre curve."_s;
    case GraphElement::enhance:
        break;
    }
    return u"--> La modalità enchance visualizza a barre colorate lo stato del giorno. Il colore "
           "tende allo stato prevalente quel giorno, quindi una barra molto chiara fa presupporre "
           "un buono stato bioritmico."_s;
}

void GraphWindow::chooseElement(GraphElement element, bool shown) {
    m_showFlags.at(static_cast<std::size_t>(element)) = shown;
    m_ui->Text4->setPlainText(elementHelp(element) +
                              u"\n\n--> Perchè i cambiamenti diventino definitivi nel grafico "
                              "occorre premere il tasto Aggiorna."_s);
}

void GraphWindow::describePicture() {
    m_ui->Picture1->setAccessibleDescription(describeGraph(
        {.title = titleOf(*this),
         .calculationDate = m_calculationDate,
         .values = m_source->valuesOn(m_source->startingSpan(m_daysAround), m_daysAround),
         .daysAround = m_daysAround,
         .drawn = m_drawnFlags,
         .note = note()}));
}

void GraphWindow::pressed(Qt::MouseButton button, QPoint position) {
    if (button != Qt::RightButton) {
        return;
    }
    if (const auto day = m_plot.dayAt(position.x())) {
        showPopup(*day, position);
    }
}

/// Without a mouse no day is pointed at; it is the calculation date then.
void GraphWindow::openMenuByKeyboard() {
    showPopup(m_daysAround, popupPlace(m_plot, m_ui->Picture1->visibleRegion().boundingRect()));
}

void GraphWindow::showPopup(std::int32_t day, QPoint position) {
    const DayTexts texts = dayTexts(m_source->valuesOn(day, m_plot.daysAround));
    m_frame.showDayPopup({.day = u"Giorno "_s + shortDate(m_calculationDate - m_daysAround + day),
                          .physical = texts.physical,
                          .emotional = texts.emotional,
                          .intellectual = texts.intellectual,
                          .mean = texts.mean,
                          .note = note()},
                         m_ui->Picture1->mapToGlobal(position));
}

} // namespace quor
