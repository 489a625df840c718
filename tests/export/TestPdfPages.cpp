#include "export/TestPdfPages.h"

#include "export/PdfPages.h"

#include "export/PrintingFixture.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

QStringList selected(const QByteArray& pdf, const std::vector<PageSpan>& spans) {
    return textsOf(selectPages(pdf, spans).value_or(QByteArray()));
}

QByteArray threePages() {
    return pdfWithPages({u"uno"_s, u"due"_s, u"tre"_s});
}

} // namespace

void TestPdfPages::allPagesAreTheSameBytes() {
    const QByteArray pdf = threePages();
    QCOMPARE(textsOf(pdf), QStringList({u"uno"_s, u"due"_s, u"tre"_s}));
    QCOMPARE(selectPages(pdf, {}).value(), pdf);
}

void TestPdfPages::keepsChosenPagesInTheirOrder() {
    const QByteArray pdf = threePages();
    QCOMPARE(selected(pdf, {{.first = 2, .last = 2}}), QStringList({u"due"_s}));
    QCOMPARE(selected(pdf, {{.first = 2, .last = 3}}), QStringList({u"due"_s, u"tre"_s}));
    QCOMPARE(selected(pdf, {{.first = 3, .last = 3}, {.first = 1, .last = 1}}),
             QStringList({u"tre"_s, u"uno"_s}));
}

void TestPdfPages::keepsPagesOfASelection() {
    const std::vector<PageSpan> lastTwo{{.first = 2, .last = 3}};
    const QByteArray pdf = selectPages(threePages(), lastTwo).value();
    QCOMPARE(selected(pdf, {{.first = 2, .last = 2}}), QStringList({u"tre"_s}));
}

void TestPdfPages::repeatsPagesUnderNumbersOfTheirOwn() {
    const std::vector<PageSpan> twice{{.first = 2, .last = 3}, {.first = 2, .last = 3}};
    const QByteArray pdf = selectPages(threePages(), twice).value();
    QCOMPARE(textsOf(pdf), QStringList({u"due"_s, u"tre"_s, u"due"_s, u"tre"_s}));
    const QByteArray kids = pdf.sliced(pdf.lastIndexOf("/Kids [") + 7);
    const QList<QByteArray> numbers = kids.first(kids.indexOf(']')).split('R');
    QCOMPARE(QSet<QByteArray>(numbers.begin(), numbers.end()).size(), numbers.size());
    QCOMPARE(selected(pdf, {{.first = 4, .last = 4}}), QStringList({u"tre"_s}));
}

void TestPdfPages::ignoresPagesThatAreNotThere() {
    const QByteArray pdf = threePages();
    QCOMPARE(selected(pdf, {{.first = -5, .last = 1}, {.first = 3, .last = 99}}),
             QStringList({u"uno"_s, u"tre"_s}));
    const std::vector<PageSpan> none{{.first = 4, .last = 9}};
    QVERIFY(!selectPages(pdf, none));
}

void TestPdfPages::givesUpOnOtherFiles() {
    const std::vector<PageSpan> first{{.first = 1, .last = 1}};
    QVERIFY(!selectPages({}, first));
    QVERIFY(!selectPages("not a document", first));
    QVERIFY(!selectPages("%PDF-1.4\ntrailer\n<</Size 3 /Root 1 0 R>>\nstartxref\n9\n%%EOF", first));
    const QByteArray pdf = threePages();
    for (const qsizetype length : {pdf.size() / 4, pdf.size() / 2, pdf.size() - 20}) {
        QVERIFY(!selectPages(pdf.first(length), first));
    }
}

void TestPdfPages::endsOnATreeThatBitesItsTail() {
    const QByteArray pdf = "%PDF-1.4\n"
                           "1 0 obj\n<</Type /Catalog /Pages 2 0 R>>\nendobj\n"
                           "2 0 obj\n<</Type /Pages /Kids [2 0 R 3 0 R]>>\nendobj\n"
                           "3 0 obj\n<</Type /Pages /Kids [2 0 R]>>\nendobj\n"
                           "trailer\n<</Size 4 /Root 1 0 R>>\nstartxref\n9\n%%EOF\n";
    const std::vector<PageSpan> first{{.first = 1, .last = 1}};
    QVERIFY(!selectPages(pdf, first));
}

} // namespace quor::test
