#include "export/TestPreviewWindow.h"

#include "export/PreviewWindow.h"

#include "export/PrintingFixture.h"
#include "support/ScriptedDialogs.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QPdfView>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolButton>
#include <QWheelEvent>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// An open preview of two pages.
struct Preview {
    Preview() {
        window->setDocument(
            {.pdf = pdfWithPages({u"uno"_s, u"due"_s}), .name = u"Maria_stampa_Riepilogo"_s});
        window->resize(700, 800);
        window->show();
        window->activateWindow();
        QApplication::processEvents();
    }
    ~Preview() { delete window; }
    Preview(const Preview&) = delete;
    Preview& operator=(const Preview&) = delete;
    Preview(Preview&&) = delete;
    Preview& operator=(Preview&&) = delete;

    [[nodiscard]] QString label(const QString& name) const {
        return window->findChild<QLabel*>(name)->text();
    }
    [[nodiscard]] QToolButton* tool(const QString& name) const {
        return window->findChild<QToolButton*>(name);
    }
    [[nodiscard]] QPdfView* view() const { return window->findChild<QPdfView*>(); }

    QPointer<PreviewWindow> window = new PreviewWindow;
};

/// Other pages come to the preview while the print dialog is open.
class PagesComeMeanwhile : public ScriptedDialogs {
  public:
    explicit PagesComeMeanwhile(const Preview& preview)
        : m_preview(preview) {}

    std::optional<PrintChoice> print(QWidget* parent, const PrintRequest& request) override {
        m_preview.window->setDocument(
            {.pdf = pdfWithPages({u"a"_s, u"b"_s, u"c"_s}), .name = u"altro"_s});
        return ScriptedDialogs::print(parent, request);
    }

  private:
    const Preview& m_preview;
};

bool isAbout(double value, double expected) {
    return std::abs(value - expected) < 0.001;
}

} // namespace

void TestPreviewWindow::startsOnTheFirstPage() {
    const Preview preview;
    QCOMPARE(preview.window->windowTitle(), u"Anteprima di stampa"_s);
    QVERIFY(!preview.window->isModal());
    QVERIFY(preview.window->isWindow());
    QCOMPARE(preview.window->pageCount(), 2);
    QCOMPARE(preview.label(u"Label1"_s), u"Pagina 1 di 2"_s);
    QVERIFY(!preview.tool(u"Previous"_s)->isEnabled());
    QVERIFY(preview.tool(u"Next"_s)->isEnabled());
    QVERIFY(preview.tool(u"FitPage"_s)->isChecked());
}

void TestPreviewWindow::turnsPages() {
    const Preview preview;
    preview.tool(u"Next"_s)->click();
    QCOMPARE(preview.label(u"Label1"_s), u"Pagina 2 di 2"_s);
    QCOMPARE(preview.window->currentPage(), 1);
    QVERIFY(preview.tool(u"Previous"_s)->isEnabled());
    QVERIFY(!preview.tool(u"Next"_s)->isEnabled());
    preview.window->goToPage(2);
    QCOMPARE(preview.window->currentPage(), 1);
    preview.tool(u"Previous"_s)->click();
    QCOMPARE(preview.label(u"Label1"_s), u"Pagina 1 di 2"_s);
    preview.window->goToPage(-1);
    QCOMPARE(preview.window->currentPage(), 0);
}

void TestPreviewWindow::turnsPagesWithTheKeyboard() {
    const Preview preview;
    QVERIFY(preview.view()->hasFocus());
    QTest::keyClick(preview.view(), Qt::Key_PageDown);
    QCOMPARE(preview.window->currentPage(), 1);
    QTest::keyClick(preview.view(), Qt::Key_PageUp);
    QCOMPARE(preview.window->currentPage(), 0);
    QTest::keyClick(preview.view(), Qt::Key_End);
    QCOMPARE(preview.window->currentPage(), 1);
    QTest::keyClick(preview.view(), Qt::Key_Home);
    QCOMPARE(preview.window->currentPage(), 0);
}

void TestPreviewWindow::zooms() {
    const Preview preview;
    const double whole = preview.window->zoom();
    QVERIFY(whole > 0.3 && whole < 1.0);
    preview.tool(u"ZoomIn"_s)->click();
    QVERIFY(preview.window->zoom() > whole);
    QVERIFY(!preview.tool(u"FitPage"_s)->isChecked());
    preview.tool(u"ZoomOut"_s)->click();
    QVERIFY(preview.window->zoom() <= whole);
    for (int i = 0; i < 20; ++i) {
        preview.tool(u"ZoomIn"_s)->click();
    }
    QVERIFY(isAbout(preview.window->zoom(), 4.0));
    QCOMPARE(preview.label(u"Label2"_s), u"400 %"_s);
    QVERIFY(!preview.tool(u"ZoomIn"_s)->isEnabled());
    for (int i = 0; i < 20; ++i) {
        preview.tool(u"ZoomOut"_s)->click();
    }
    QVERIFY(isAbout(preview.window->zoom(), 0.25));
    QCOMPARE(preview.label(u"Label2"_s), u"25 %"_s);
    QVERIFY(!preview.tool(u"ZoomOut"_s)->isEnabled());
}

void TestPreviewWindow::zoomsWithTheKeyboardAndTheWheel() {
    const Preview preview;
    const double whole = preview.window->zoom();
    QTest::keyClick(preview.view(), Qt::Key_Plus, Qt::ControlModifier);
    const double larger = preview.window->zoom();
    QVERIFY(larger > whole);
    QTest::keyClick(preview.view(), Qt::Key_Minus, Qt::ControlModifier);
    QVERIFY(preview.window->zoom() < larger);
    QTest::keyClick(preview.view(), Qt::Key_0, Qt::ControlModifier);
    QVERIFY(isAbout(preview.window->zoom(), whole));
    const auto wheel = [&preview](int steps, Qt::KeyboardModifiers modifiers) {
        QWidget* target = preview.view()->viewport();
        const QPointF middle = target->rect().center();
        QWheelEvent event(middle, target->mapToGlobal(middle), {}, {0, steps * 120}, Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(target, &event);
    };
    wheel(1, Qt::ControlModifier);
    QVERIFY(isAbout(preview.window->zoom(), larger));
    wheel(-1, Qt::ControlModifier);
    QVERIFY(preview.window->zoom() < larger);
    const double before = preview.window->zoom();
    wheel(-1, Qt::NoModifier); // scrolls
    QVERIFY(isAbout(preview.window->zoom(), before));
}

void TestPreviewWindow::fitsThePaper() {
    const Preview preview;
    const double whole = preview.window->zoom();
    preview.tool(u"FitWidth"_s)->click();
    QVERIFY(preview.tool(u"FitWidth"_s)->isChecked());
    QVERIFY(!preview.tool(u"FitPage"_s)->isChecked());
    const double wide = preview.window->zoom();
    QVERIFY(wide > whole);
    preview.window->resize(900, 800);
    QTRY_VERIFY(preview.window->zoom() > wide);
    const QString shown = u"%1 %"_s.arg(std::lround(preview.window->zoom() * 100));
    QTRY_COMPARE(preview.label(u"Label2"_s), shown);
    preview.tool(u"FitPage"_s)->click();
    QVERIFY(isAbout(preview.window->zoom(), whole));
}

void TestPreviewWindow::showsThePaper() {
    const Preview preview;
    const auto middle = [&preview] {
        const QImage image = preview.view()->viewport()->grab().toImage();
        return image.pixelColor(image.rect().center());
    };
    QTRY_COMPARE(middle(), QColor(Qt::white));
}

void TestPreviewWindow::takesOtherPages() {
    const Preview preview;
    preview.window->goToPage(1);
    preview.window->setDocument(
        {.pdf = pdfWithPages({u"a"_s, u"b"_s, u"c"_s}), .name = u"altro"_s});
    QCOMPARE(preview.label(u"Label1"_s), u"Pagina 1 di 3"_s);
    preview.window->goToPage(2);
    QCOMPARE(preview.label(u"Label1"_s), u"Pagina 3 di 3"_s);
}

void TestPreviewWindow::prints() {
    const Preview preview;
    ScriptedDialogs dialogs;
    for (int i = 0; i < 2; ++i) {
        dialogs.expectPrint(u"Stampa"_s, u"Maria_stampa_Riepilogo"_s, 2, std::nullopt);
    }
    auto* button = preview.window->findChild<QPushButton*>(u"Command1"_s);
    QCOMPARE(button->text(), u"&Stampa"_s);
    button->click();
    QTest::keyClick(preview.view(), Qt::Key_P, Qt::ControlModifier);
    QVERIFY(dialogs.finished());
}

/// The pages that were asked about, though others have come while the dialog was open.
void TestPreviewWindow::printsWhatWasShown() {
    const Preview preview;
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"pagine.pdf"_s);
    PrintChoice choice{.printer = {}, .file = file};
    choice.pages = {{.first = 2, .last = 2}};
    PagesComeMeanwhile dialogs(preview);
    dialogs.expectPrint(u"Stampa"_s, u"Maria_stampa_Riepilogo"_s, 2, choice);
    preview.window->findChild<QPushButton*>(u"Command1"_s)->click();
    QVERIFY(dialogs.finished());
    QCOMPARE(textsOf(contentOf(file)), (QStringList{u"due"_s}));
    QCOMPARE(preview.window->pageCount(), 3);
}

void TestPreviewWindow::closes() {
    const Preview preview;
    auto* button = preview.window->findChild<QPushButton*>(u"Command2"_s);
    QCOMPARE(button->text(), u"&Chiudi"_s);
    button->click();
    QTRY_VERIFY(preview.window == nullptr);
}

void TestPreviewWindow::controlsAreNamed() {
    const Preview preview;
    for (const QToolButton* button : preview.window->findChildren<QToolButton*>()) {
        QVERIFY2(!button->accessibleName().isEmpty(), qPrintable(button->objectName()));
        QVERIFY2(button->toolTip().contains(u'('), qPrintable(button->objectName()));
        QVERIFY2(!button->icon().isNull(), qPrintable(button->objectName()));
    }
    QCOMPARE(preview.view()->accessibleName(), u"Pagine da stampare"_s);
    // Of these two the text is what matters to who cannot see it.
    for (auto* label : {preview.window->findChild<QLabel*>(u"Label1"_s),
                        preview.window->findChild<QLabel*>(u"Label2"_s)}) {
        QCOMPARE(QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name),
                 label->text());
    }
}

void TestPreviewWindow::withoutPagesThereIsNothingToDo() {
    PreviewWindow window;
    QCOMPARE(window.findChild<QLabel*>(u"Label1"_s)->text(), u"Nessuna pagina"_s);
    QVERIFY(!window.findChild<QPushButton*>(u"Command1"_s)->isEnabled());
    window.goToPage(0);
    window.zoomIn();
    window.zoomOut();
    window.fitWidth();
    window.fitPage();
    QCOMPARE(window.pageCount(), 0);
}

} // namespace quor::test
