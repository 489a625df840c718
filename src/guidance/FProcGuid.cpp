#include "guidance/FProcGuid.h"

#include "toolkit/ImageList.h"

#include <QFontInfo>
#include <QMainWindow>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QStyle>

#include <algorithm>

#include "ui_FProcGuid.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr QSize guideEmblemSize(40, 40);
constexpr QSize guidePictureSize(32, 32);
/// The heading against the text below it.
constexpr qreal guideHeadingScale = 1.25;
/// The longest text, as it is read best. Characters and lines.
constexpr int textColumns = 54;
constexpr int textLines = 5;

const ToolInfo& toolOf(Command command) {
    const auto tools = toolTable();
    return *std::ranges::find_if(
        tools, [command](const ToolInfo& info) { return info.command == command && info.key; });
}

} // namespace

FProcGuid::FProcGuid(Program& program, Frame& frame, QWidget* parent)
    : QDialog(parent)
    , m_program(program)
    , m_frame(frame)
    , m_ui(std::make_unique<Ui::FProcGuid>())
    , m_steps(tourSteps(program.state.guidedProcedureActive)) {
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui->setupUi(this);
    m_ui->Picture1->setIcon(emblem(), guideEmblemSize);
    QFont headingFont = font();
    headingFont.setPointSizeF(QFontInfo(headingFont).pointSizeF() * guideHeadingScale);
    headingFont.setBold(true);
    m_ui->Label1->setFont(headingFont);
    // The window keeps its size from step to step.
    QSizePolicy policy = m_ui->Image1->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_ui->Image1->setSizePolicy(policy);
    m_ui->Image1->setIcon({}, guidePictureSize);
    const QFontMetrics metrics(m_ui->Text1->font());
    const int border = 2 * (m_ui->Text1->frameWidth() + 4);
    m_ui->Text1->setFixedSize(textColumns * metrics.averageCharWidth() + border,
                              textLines * metrics.lineSpacing() + border);
    connect(m_ui->Command1, &QPushButton::clicked, this, &FProcGuid::next);
    // Nothing has been asked of the user yet, so the dialog for a new biorhythm can be closed.
    m_program.state.guidedStepDone = true;
    if (!m_steps.empty()) {
        showStep();
    }
}

FProcGuid::~FProcGuid() {
    endTour();
}

void FProcGuid::showStep() {
    const TourStep& current = step();
    m_ui->Text1->setPlainText(QString::fromUtf16(current.text));
    m_ui->Image1->setVisible(current.picture.has_value());
    if (current.picture) {
        const ToolInfo& tool = toolOf(*current.picture);
        m_ui->Image1->setIcon(picture(u"Imm"_s + QString::fromLatin1(tool.key)), guidePictureSize);
        m_ui->Image1->setAccessibleName(u"Pulsante: "_s + QString::fromUtf16(tool.toolTip));
    }
    m_ui->Command1->setText(isLastStep() ? u"FINE"_s : u"NEXT >>"_s);
    m_frame.lockCommands(current.lock);
}

void FProcGuid::next() {
    if (m_steps.empty() || isLastStep()) {
        accept();
        return;
    }
    if (step().opens) {
        // Questions may come first, and while one is open anything may happen, the program's end
        // included.
        const QPointer<FProcGuid> self(this);
        const bool opened = m_frame.openForTour(*step().opens);
        if (self.isNull() || m_over) {
            return;
        }
        if (!opened) {
            reject();
            return;
        }
        if (*step().opens == Command::mnuCalcola) {
            m_waitsForEntry = true;
            m_program.state.guidedStepDone = false;
            setEnabled(false);
            return;
        }
    }
    ++m_step;
    showStep();
}

void FProcGuid::entryFinished() {
    if (!m_waitsForEntry || m_over) {
        return;
    }
    m_waitsForEntry = false;
    if (!m_program.state.guidedStepDone) {
        reject();
        return;
    }
    setEnabled(true);
    ++m_step;
    showStep();
    // The views have opened, and one of them has the keyboard now.
    raise();
    activateWindow();
    m_ui->Command1->setFocus();
}

void FProcGuid::systemClosed() {
    if (!m_over && !m_steps.empty() && step().needsSystem) {
        reject();
    }
}

void FProcGuid::done(int result) {
    endTour();
    QDialog::done(result);
}

void FProcGuid::endTour() {
    if (m_over) {
        return;
    }
    m_over = true;
    m_program.state.guidedProcedureActive = 0;
    m_program.state.guidedStepDone = false;
    m_frame.unlockCommands();
}

/// At the lower right of the frame, away from the toolbar and from where other windows open, and
/// inside the screen.
void FProcGuid::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    const QWidget* frame = parentWidget();
    if (m_placed || frame == nullptr) {
        return;
    }
    m_placed = true;
    const QRect inner = frame->geometry();
    const QRect outer = frame->frameGeometry();
    // The window manager will frame this window as it has framed the other one.
    const QMargins border(inner.left() - outer.left(), inner.top() - outer.top(),
                          outer.right() - inner.right(), outer.bottom() - inner.bottom());
    const int gap = 2 * style()->pixelMetric(QStyle::PM_LayoutRightMargin);
    QRect place(QPoint(), size().grownBy(border));
    place.moveBottomRight(inner.bottomRight() - QPoint(gap, gap + frame->fontMetrics().height()));
    // Below the toolbar even of a low frame, whose lower edge it then reaches over.
    if (const auto* window = qobject_cast<const QMainWindow*>(frame);
        window != nullptr && window->centralWidget() != nullptr) {
        const QWidget* inside = window->centralWidget();
        place.moveTop(std::max(place.top(), inside->mapToGlobal(QPoint()).y()));
    }
    const QRect screenArea = frame->screen()->availableGeometry();
    place.moveRight(std::min(place.right(), screenArea.right()));
    place.moveBottom(std::min(place.bottom(), screenArea.bottom()));
    place.moveLeft(std::max(place.left(), screenArea.left()));
    place.moveTop(std::max(place.top(), screenArea.top()));
    // By what the border leaves: until the window manager has framed it, the border is unknown to
    // the toolkit, which then would take the corner of the frame for that of the contents.
    setGeometry(place.marginsRemoved(border));
}

} // namespace quor
