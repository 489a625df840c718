#include "guidance/FFastStart.h"

#include "toolkit/ImageList.h"
#include "toolkit/SettingsStore.h"

#include <QCloseEvent>
#include <QFontInfo>
#include <QPointer>
#include <QPushButton>

#include <algorithm>

#include "ui_FFastStart.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr QSize startEmblemSize(64, 64);
constexpr QSize startPictureSize(40, 40);
/// The headings against the other texts.
constexpr qreal questionScale = 1.8;
constexpr qreal startHeadingScale = 1.15;

void enlarge(QLabel* label, qreal scale) {
    QFont font = label->font();
    font.setPointSizeF(QFontInfo(font).pointSizeF() * scale);
    label->setFont(font);
}

} // namespace

FFastStart::FFastStart(Program& program, Frame& frame, QWidget* parent)
    : ChildWindow(parent)
    , m_program(program)
    , m_frame(frame)
    , m_ui(std::make_unique<Ui::FFastStart>()) {
    m_ui->setupUi(this);
    m_ui->Emblem->setIcon(emblem(), startEmblemSize);
    enlarge(m_ui->Label4, questionScale);
    enlarge(m_ui->Label5, startHeadingScale);
    m_ui->Image1->setIcon(picture(u"ImmNuovoBioritmo"_s), startPictureSize);
    m_ui->Image2->setIcon(picture(u"ImmNuovoSistema"_s), startPictureSize);
    // The buttons beside the choices stand at the middle of their frames, below the captions.
    m_ui->Frame1->ensurePolished();
    const QMargins margins = m_ui->Frame1->contentsMargins();
    const int captionHeight = std::max(0, margins.top() - margins.bottom());
    m_ui->tourLayout1->setContentsMargins(0, captionHeight, 0, 0);
    m_ui->tourLayout2->setContentsMargins(0, captionHeight, 0, 0);
    m_ui->Check1->setChecked(m_program.state.fastStart == u"TRUE"_s);
    connect(m_ui->Frame1, &QAbstractButton::clicked, this, [this] { choose(Command::mnuCalcola); });
    connect(m_ui->Frame2, &QAbstractButton::clicked, this,
            [this] { choose(Command::mnuNuovoSistema); });
    connect(m_ui->Command2, &QPushButton::clicked, this, [this] { showHow(Tour::newBiorhythm); });
    connect(m_ui->Command3, &QPushButton::clicked, this, [this] { showHow(Tour::system); });
    connect(m_ui->Command1, &QPushButton::clicked, this, &FFastStart::closeWindow);
}

FFastStart::~FFastStart() {
    store();
}

void FFastStart::choose(Command command) {
    const QPointer<FFastStart> self(this); // the command may ask questions
    m_frame.run(command);
    if (!self.isNull()) {
        closeWindow();
    }
}

void FFastStart::showHow(Tour tour) {
    const auto number = static_cast<std::uint8_t>(tour);
    const bool oneIsRunning = m_program.state.guidedProcedureActive != 0;
    const QPointer<FFastStart> self(this);
    m_frame.startTour(number);
    if (!self.isNull() && !oneIsRunning) {
        closeWindow();
    }
}

void FFastStart::store() {
    if (m_stored) {
        return;
    }
    m_stored = true;
    m_program.state.fastStart = m_ui->Check1->isChecked() ? u"TRUE"_s : u"FALSE"_s;
    // A store that cannot be written costs no more than the window's coming again.
    saveSetting(u"Options"_s, u"FastStart"_s, m_program.state.fastStart);
}

void FFastStart::closeEvent(QCloseEvent* event) {
    ChildWindow::closeEvent(event);
    if (event->isAccepted()) {
        store();
    }
}

} // namespace quor
