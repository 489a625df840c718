#include "views/graph/FGrphSet.h"

#include "toolkit/PictureBox.h"
#include "toolkit/ShowHelp.h"
#include "toolkit/WornColour.h"
#include "views/graph/FGrSetOpt.h"
#include "views/graph/PictureFonts.h"
#include "views/graph/WeekDrawing.h"

#include <QEvent>

#include <algorithm>

#include "ui_FGrphSet.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

void giveOneWidth(std::initializer_list<QWidget*> widgets) {
    int widest = 0;
    for (const QWidget* widget : widgets) {
        widest = std::max(widest, widget->sizeHint().width());
    }
    for (QWidget* widget : widgets) {
        widget->setMinimumWidth(widest);
    }
}

} // namespace

FGrphSet::FGrphSet(Program& program, QWidget* parent)
    : ChildWindow(parent)
    , m_program(program)
    , m_ui(std::make_unique<Ui::FGrphSet>())
    , m_week(weekOf(program.biorhythm))
    , m_colours(weeklyColours(program.biorhythm)) {
    m_ui->setupUi(this);
    m_pictures = {m_ui->Picture1_0, m_ui->Picture1_1, m_ui->Picture1_2, m_ui->Picture1_3};
    for (const WeekRow row : weekRows) {
        picture(row)->setAccessibleDescription(describeRow(m_week, row));
        connect(picture(row), &PictureBox::resized, this, [this, row] { redrawRow(row); });
    }
    connect(m_ui->Command1, &QPushButton::clicked, this, &FGrphSet::closeWindow);
    connect(m_ui->Command2, &QPushButton::clicked, this, &FGrphSet::SetOptions);
    connect(m_ui->Command3, &QPushButton::clicked, this,
            [this] { ShowHelp(this, helpPath(u"2settimanale.html"_s)); });
    colourLegend();
    alignWidths();
    m_ui->Command1->setFocus();
}

FGrphSet::~FGrphSet() = default;

QSize FGrphSet::sizeHint() const {
    return QWidget::sizeHint().expandedTo(forFont({980, 560}));
}

void FGrphSet::SetOptions() {
    auto* dialog = new FGrSetOpt(m_program, this);
    dialog->initialise(m_colours);
    connect(dialog, &FGrSetOpt::WeeklyOptionsChanged, this, &FGrphSet::applyWeeklyOptions);
    dialog->open();
}

void FGrphSet::applyWeeklyOptions(const WeeklyColours& colours) {
    m_colours = colours;
    colourLegend();
    redraw();
}

void FGrphSet::changeEvent(QEvent* event) {
    ChildWindow::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::LocaleChange) {
        alignWidths();
        redraw();
    }
}

/// One width for the buttons and one for the labels of the legend.
void FGrphSet::alignWidths() {
    giveOneWidth({m_ui->Command1, m_ui->Command2, m_ui->Command3});
    giveOneWidth({m_ui->Label1_0, m_ui->Label1_1, m_ui->Label1_2});
}

PictureBox* FGrphSet::picture(WeekRow row) const {
    return m_pictures.at(static_cast<std::size_t>(row));
}

void FGrphSet::redraw() {
    for (const WeekRow row : weekRows) {
        redrawRow(row);
    }
}

void FGrphSet::redrawRow(WeekRow row) {
    PictureBox* box = picture(row);
    const WeekPlot plot = layOutWeek(box->size());
    const WeekTexts texts = layOutTexts(plot, sizesOf(font()));
    box->setFont(texts.font);
    const WeekStyle style{.colours = m_colours,
                          .weekday = m_week.weekday,
                          .labelWidth = labelWidth(texts.font, row),
                          .labelDrop = texts.labelDrop,
                          .names = texts.names};
    box->setDrawing(drawWeekRow(m_week.weekStartDayCount, row, plot, style));
}

/// Each label of the legend wears the colour that it explains.
void FGrphSet::colourLegend() {
    const auto wear = [this](QLabel* label, DayClass state) {
        wearColour(*label, m_colours.at(static_cast<std::size_t>(state)));
    };
    wear(m_ui->Label1_0, DayClass::optimal);
    wear(m_ui->Label1_1, DayClass::stable);
    wear(m_ui->Label1_2, DayClass::critical);
}

} // namespace quor
