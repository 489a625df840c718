#include "export/PreviewWindow.h"

#include "export/PdfPages.h"
#include "export/PrintDocument.h"
#include "toolkit/ImageList.h"

#include <QAction>
#include <QKeySequence>
#include <QPdfDocument>
#include <QPdfPageNavigator>
#include <QPdfPageRenderer>
#include <QPdfView>
#include <QScreen>
#include <QScrollBar>
#include <QToolButton>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cmath>

#include "ui_PreviewWindow.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr std::array zoomSteps{0.25, 0.33, 0.5, 0.67, 0.75, 1.0, 1.25, 1.5, 2.0, 3.0, 4.0};
/// Two zooms closer than this are the same step.
constexpr double sameZoom = 0.005;
/// Of the screen that the window takes at most, and the sheet's own proportions.
constexpr double shareOfScreen = 0.85;
constexpr QSize usualSize(760, 900);

} // namespace

PreviewWindow::PreviewWindow(QWidget* parent)
    : PagesWindow(parent)
    , m_ui(std::make_unique<Ui::PreviewWindow>())
    , m_pages(std::make_unique<QPdfDocument>()) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    m_ui->setupUi(this);
    m_noPages = new QPdfDocument(m_ui->View1); // lives as long as the view
    resize(usualSize.boundedTo(screen()->availableSize() * shareOfScreen));

    m_ui->View1->setPageMode(QPdfView::PageMode::MultiPage);
    m_ui->View1->setZoomMode(QPdfView::ZoomMode::FitInView);
    // The view leaves as much as this of its height free when it fits a page into it.
    const QMargins margins = m_ui->View1->documentMargins();
    m_ui->View1->setPageSpacing(margins.top() + margins.bottom());
    m_ui->View1->setDocument(m_pages.get());
    m_ui->View1->viewport()->installEventFilter(this);
    connectActions();

    connect(m_ui->View1->pageNavigator(), &QPdfPageNavigator::currentPageChanged, this,
            &PreviewWindow::showState);
    connect(m_ui->View1, &QPdfView::zoomModeChanged, this, &PreviewWindow::showState);
    connect(m_ui->View1, &QPdfView::zoomFactorChanged, this, &PreviewWindow::showState);
    connect(m_ui->Command1, &QPushButton::clicked, this, [this] {
        const PrintableDocument shown = m_document; // other pages may come while the dialog asks
        printDocument(this, shown);
    });
    connect(m_ui->Command2, &QPushButton::clicked, this, &PreviewWindow::close);
    m_ui->View1->setFocus();
    showState();
}

PreviewWindow::~PreviewWindow() {
    m_ui->View1->viewport()->removeEventFilter(this);
    m_ui->View1->disconnect(this);
    m_ui->View1->setDocument(m_noPages);
    // Qt ends its thread with the view, but lets go of it only when told.
    if (auto* renderer = m_ui->View1->findChild<QPdfPageRenderer*>()) {
        renderer->setRenderMode(QPdfPageRenderer::RenderMode::SingleThreaded);
    }
}

void PreviewWindow::connectActions() {
    const auto add = [this](QToolButton* button, const QString& pictureKey, const QString& text,
                            const QList<QKeySequence>& keys, const auto& slot) {
        auto* action = new QAction(picture(pictureKey), text, this);
        action->setShortcuts(keys);
        action->setToolTip(
            u"%1 (%2)"_s.arg(text, keys.constFirst().toString(QKeySequence::NativeText)));
        connect(action, &QAction::triggered, this, slot);
        addAction(action);
        const bool checkable = button->isCheckable();
        button->setDefaultAction(action);
        action->setCheckable(checkable);
        button->setAccessibleName(text);
    };
    add(m_ui->Previous, u"ImmPaginaPrecedente"_s, u"Pagina precedente"_s,
        {QKeySequence(Qt::Key_PageUp)}, [this] { goToPage(currentPage() - 1); });
    add(m_ui->Next, u"ImmPaginaSuccessiva"_s, u"Pagina successiva"_s,
        {QKeySequence(Qt::Key_PageDown)}, [this] { goToPage(currentPage() + 1); });
    add(m_ui->ZoomOut, u"ImmRiduci"_s, u"Riduci"_s, {QKeySequence(u"Ctrl+-"_s)},
        [this] { zoomOut(); });
    add(m_ui->ZoomIn, u"ImmIngrandisci"_s, u"Ingrandisci"_s,
        {QKeySequence(u"Ctrl++"_s), QKeySequence(u"Ctrl+="_s)}, [this] { zoomIn(); });
    add(m_ui->FitWidth, u"ImmLarghezzaPagina"_s, u"Larghezza della pagina"_s,
        {QKeySequence(u"Ctrl+1"_s)}, [this] { fitWidth(); });
    add(m_ui->FitPage, u"ImmPaginaIntera"_s, u"Pagina intera"_s, {QKeySequence(u"Ctrl+0"_s)},
        [this] { fitPage(); });

    const auto addKey = [this](const QKeySequence& keys, const auto& slot) {
        auto* action = new QAction(this);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, slot);
        addAction(action);
    };
    addKey(QKeySequence(Qt::Key_Home), [this] { goToPage(0); });
    addKey(QKeySequence(Qt::Key_End), [this] { goToPage(pageCount() - 1); });
    addKey(QKeySequence(u"Ctrl+P"_s), [this] { m_ui->Command1->click(); });
    addKey(QKeySequence(u"Ctrl+W"_s), [this] { close(); });
}

void PreviewWindow::setDocument(const PrintableDocument& document) {
    m_document = document;
    // The old pages still read the old buffer.
    m_ui->View1->setDocument(m_noPages);
    m_pages = std::make_unique<QPdfDocument>();
    m_buffer = std::make_unique<QBuffer>(&m_document.pdf);
    m_buffer->open(QIODevice::ReadOnly);
    m_pages->load(m_buffer.get());
    m_ui->View1->setDocument(m_pages.get());
    goToPage(0);
    showState();
}

int PreviewWindow::currentPage() const {
    return m_ui->View1->pageNavigator()->currentPage();
}

int PreviewWindow::pageCount() const {
    return m_pages->pageCount();
}

double PreviewWindow::zoom() const {
    const QPdfView& view = *m_ui->View1;
    if (view.zoomMode() == QPdfView::ZoomMode::Custom || pageCount() == 0) {
        return view.zoomFactor();
    }
    // What the view makes of the mode; it does not say.
    const QSizeF paper =
        m_pages->pagePointSize(currentPage()) / pointsPerInch * view.screen()->logicalDotsPerInch();
    const QMargins margins = view.documentMargins();
    const QSize space = view.viewport()->size().shrunkBy(margins);
    const double toWidth = space.width() / paper.width();
    return view.zoomMode() == QPdfView::ZoomMode::FitToWidth
               ? toWidth
               : std::min(toWidth, space.height() / paper.height());
}

void PreviewWindow::goToPage(int page) {
    if (page >= 0 && page < pageCount()) {
        m_ui->View1->pageNavigator()->jump(page, {}, m_ui->View1->pageNavigator()->currentZoom());
    }
}

void PreviewWindow::zoomIn() {
    const double now = zoom();
    const auto* const step =
        std::find_if(zoomSteps.begin(), zoomSteps.end(),
                     [now](double candidate) { return candidate > now + sameZoom; });
    if (step != zoomSteps.end()) {
        setZoom(*step);
    }
}

void PreviewWindow::zoomOut() {
    const double now = zoom();
    const auto step = std::find_if(zoomSteps.rbegin(), zoomSteps.rend(),
                                   [now](double candidate) { return candidate < now - sameZoom; });
    if (step != zoomSteps.rend()) {
        setZoom(*step);
    }
}

void PreviewWindow::setZoom(double zoom) {
    m_ui->View1->setZoomMode(QPdfView::ZoomMode::Custom);
    m_ui->View1->setZoomFactor(zoom);
    showState();
}

void PreviewWindow::fitWidth() {
    m_ui->View1->setZoomMode(QPdfView::ZoomMode::FitToWidth);
    showState();
}

void PreviewWindow::fitPage() {
    m_ui->View1->setZoomMode(QPdfView::ZoomMode::FitInView);
    showState();
}

void PreviewWindow::showState() {
    const int count = pageCount();
    const int page = currentPage();
    const double now = zoom();
    m_ui->Label1->setText(count == 0 ? u"Nessuna pagina"_s
                                     : u"Pagina %1 di %2"_s.arg(page + 1).arg(count));
    constexpr int percent = 100;
    m_ui->Label2->setText(u"%1 %"_s.arg(std::lround(now * percent)));
    m_ui->Previous->defaultAction()->setEnabled(page > 0);
    m_ui->Next->defaultAction()->setEnabled(page + 1 < count);
    m_ui->ZoomOut->defaultAction()->setEnabled(count > 0 && now > zoomSteps.front() + sameZoom);
    m_ui->ZoomIn->defaultAction()->setEnabled(count > 0 && now < zoomSteps.back() - sameZoom);
    m_ui->FitWidth->defaultAction()->setEnabled(count > 0);
    m_ui->FitPage->defaultAction()->setEnabled(count > 0);
    m_ui->FitWidth->defaultAction()->setChecked(m_ui->View1->zoomMode() ==
                                                QPdfView::ZoomMode::FitToWidth);
    m_ui->FitPage->defaultAction()->setChecked(m_ui->View1->zoomMode() ==
                                               QPdfView::ZoomMode::FitInView);
    m_ui->Command1->setEnabled(count > 0);
}

bool PreviewWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        // After the view has taken its new size.
        QMetaObject::invokeMethod(this, &PreviewWindow::showState, Qt::QueuedConnection);
    } else if (event->type() == QEvent::Wheel) {
        const auto* wheel = static_cast<QWheelEvent*>(event);
        if (wheel->modifiers().testFlag(Qt::ControlModifier)) {
            if (wheel->angleDelta().y() > 0) {
                zoomIn();
            } else if (wheel->angleDelta().y() < 0) {
                zoomOut();
            }
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace quor
