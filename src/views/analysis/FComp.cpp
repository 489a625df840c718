#include "views/analysis/FComp.h"

#include "toolkit/ItemChoice.h"
#include "toolkit/LineText.h"
#include "toolkit/Messages.h"
#include "toolkit/PictureBox.h"
#include "toolkit/ShowHelp.h"
#include "toolkit/WornColour.h"
#include "views/analysis/CompatibilityDrawing.h"

#include <QListView>
#include <QProxyStyle>
#include <QStringListModel>
#include <QStyleOption>

#include <algorithm>

#include "ui_FComp.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr Compatibility bestOfAll{
    .physical = 100, .emotional = 100, .intellectual = 100, .overall = 100};

/// Lets a list drop down as a list, as wide as its box and with a scroll bar. A menu would be as
/// wide as the longest name, out of the screen if need be, and could not be scrolled in reasonable
/// time through the names of a large system.
class DropDownListStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        return hint == SH_ComboBox_Popup ? 0
                                         : QProxyStyle::styleHint(hint, option, widget, returned);
    }

    /// What an empty list says is paler than a name, yet not as pale as the toolkit would have it,
    /// which is hard to read. A palette of the list's own would say the same, but the toolkit
    /// keeps pictures of such a list under the palette's number, for each window anew.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
        const auto* list = qobject_cast<const QComboBox*>(widget);
        if (element != CE_ComboBoxLabel || box == nullptr || list == nullptr ||
            list->currentIndex() >= 0) {
            QProxyStyle::drawControl(element, option, painter, widget);
            return;
        }
        constexpr float opacity = 0.75F;
        QColor invitation = list->palette().color(QPalette::ButtonText);
        invitation.setAlphaF(opacity);
        QStyleOptionComboBox paler = *box;
        paler.palette.setColor(QPalette::ButtonText, invitation);
        QProxyStyle::drawControl(element, &paler, painter, widget);
    }
};

} // namespace

FComp::FComp(const Program& program, QWidget* parent)
    : ChildWindow(parent)
    , m_ui(std::make_unique<Ui::FComp>())
    , m_calculationDate(program.biorhythm.calculationDate)
    , m_colours(graphOptions(program.biorhythm).colours) {
    m_ui->setupUi(this);
    m_panels = {m_ui->Picture1_0, m_ui->Picture1_1, m_ui->Picture1_2, m_ui->Picture1_3};
    m_names = {{{m_ui->First0, m_ui->Second0},
                {m_ui->First1, m_ui->Second1},
                {m_ui->First2, m_ui->Second2},
                {m_ui->First3, m_ui->Second3}}};
    m_choices.at(0).list = m_ui->Combo1;
    m_choices.at(1).list = m_ui->Combo2;
    fillLists(program.state);
    setPanelSizes();
    for (std::size_t panel = 0; panel < m_panels.size(); ++panel) {
        connect(m_panels.at(panel), &PictureBox::resized, this,
                [this, panel] { drawPanel(panel); });
    }
    for (Choice& choice : m_choices) {
        connect(choice.list, &QComboBox::currentIndexChanged, this,
                [this, &choice] { choose(choice); });
        chooseByTool(*choice.list);
    }
    connect(m_ui->Command1, &QPushButton::clicked, this, &FComp::closeWindow);
    connect(m_ui->Command2, &QPushButton::clicked, this,
            [this] { ShowHelp(this, helpPath(u"3compat.html"_s)); });
    describePanels();
    drawPanels();
    m_ui->Combo1->setFocus();
}

FComp::~FComp() = default;

QSize FComp::sizeHint() const {
    return QWidget::sizeHint().expandedTo(forFont({760, 560}));
}

void FComp::changeEvent(QEvent* event) {
    ChildWindow::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        setPanelSizes(); // the text's strip and the plot below it follow the font
        drawPanels();
    }
}

/// Both lists show one model, so that a system of very many members costs neither of them an entry
/// of its own.
void FComp::fillLists(const AppState& state) {
    QStringList names;
    for (const SystemMember& member : state.members()) {
        names << lineText(member.name);
        m_birthDates.push_back(member.birthDate);
    }
    auto* model = new QStringListModel(names, this);
    auto* style = new DropDownListStyle;
    style->setParent(this);
    for (const Choice& choice : m_choices) {
        choice.list->setStyle(style);
        choice.list->setModel(model);
        choice.list->setCurrentIndex(-1);
        if (auto* view = qobject_cast<QListView*>(choice.list->view())) {
            view->setUniformItemSizes(true);
            view->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        }
    }
}

void FComp::choose(Choice& choice) {
    const int member = choice.list->currentIndex();
    if (member < 0) {
        return;
    }
    choice.member = member;
    choice.name = choice.list->currentText();
    choice.birthDate = m_birthDates.at(static_cast<std::size_t>(member));
    choice.dayCount = dayCount(choice.birthDate, m_calculationDate);
    if (areCompared(m_choices.at(0).dayCount, m_choices.at(1).dayCount)) {
        compare();
    } else {
        showNote();
    }
}

void FComp::compare() {
    const auto& [first, second] = m_choices;
    const auto result = compatibility(first.birthDate, second.birthDate);
    if (!result) {
        showNote();
        showOverflow(this,
                     u"Tra le due date di nascita passano più di 32767 giorni (quasi 90 anni). "
                     "Scegliere due persone nate meno lontano l'una dall'altra."_s);
        return;
    }
    m_shown = {.compatibility = *result,
               .members = {first.member, second.member},
               .names = {first.name, second.name},
               .dayCounts = {first.dayCount, second.dayCount}};
    showNames();
    showNote();
    describePanels();
    drawPanels();
}

/// Above each panel, on the colours of its two curves.
void FComp::showNames() {
    for (std::size_t panel = 0; panel < m_panels.size(); ++panel) {
        const auto item = static_cast<std::size_t>(compatibilityPanels.at(panel));
        const auto& [first, second] = m_names.at(panel);
        first->setFullText(m_shown->names.at(0));
        wearColour(*first, m_colours.at(item));
        second->setFullText(m_shown->names.at(1));
        wearColour(*second, secondPersonColour(m_colours.at(item)));
    }
}

/// Two persons are chosen, and the panels do not show them.
void FComp::showNote() {
    const auto& [first, second] = m_choices;
    QString note;
    if (first.member >= 0 && second.member >= 0) {
        if (!m_shown) {
            note = u"Per le due persone scelte non c'è immagine."_s;
        } else if (m_shown->members != std::array{first.member, second.member}) {
            note = u"Le immagini non sono delle due persone scelte, ma di quelle indicate sopra."_s;
        }
    }
    m_ui->Label3->setText(note);
    for (const Choice& choice : m_choices) {
        choice.list->setAccessibleDescription(note);
    }
}

/// What the panels say, for those who do not see them.
void FComp::describePanels() {
    for (std::size_t panel = 0; panel < m_panels.size(); ++panel) {
        m_panels.at(panel)->setAccessibleDescription(
            m_shown ? describeComparison(m_shown->compatibility, compatibilityPanels.at(panel),
                                         m_shown->names)
                    : describeNoComparison());
    }
}

void FComp::setPanelSizes() {
    const PictureBox* any = m_panels.front();
    int widest = 0;
    for (const StateItem item : compatibilityPanels) {
        widest = std::max(widest, any->textWidth(compatibilityText(bestOfAll, item), true));
    }
    for (PictureBox* panel : m_panels) {
        panel->setMinimumSize(smallestCompatibilityPanel(widest, any->textHeight()));
    }
}

void FComp::drawPanel(std::size_t panel) {
    PictureBox* picture = m_panels.at(panel);
    if (!m_shown) {
        picture->setDrawing(drawEmptyPanel(picture->size()));
        return;
    }
    const StateItem item = compatibilityPanels.at(panel);
    const ComparedCurves curves{.item = item,
                                .firstDayCount = m_shown->dayCounts.at(0),
                                .secondDayCount = m_shown->dayCounts.at(1),
                                .firstColour = m_colours.at(static_cast<std::size_t>(item)),
                                .text = compatibilityText(m_shown->compatibility, item)};
    picture->setDrawing(drawCompatibilityPanel(
        curves, picture->size(), layOutCompatibility(picture->size(), picture->textHeight())));
}

void FComp::drawPanels() {
    for (std::size_t panel = 0; panel < m_panels.size(); ++panel) {
        drawPanel(panel);
    }
}

} // namespace quor
