#include "TestHelpPages.h"

#include "guidance/HelpAddress.h"
#include "guidance/HelpCollection.h"

#include <QFileInfo>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QImage>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

const QString& collectionFile() {
    static const QString file = QStringLiteral(QUOR_HELP_FOLDER "/Quor.qhc");
    return file;
}

QString pageText(const HelpCollection& collection, const QUrl& url) {
    return QString::fromUtf8(const_cast<HelpCollection&>(collection)
                                 .engine()
                                 .fileData(url.adjusted(QUrl::RemoveFragment)));
}

QList<QUrl> pages(HelpCollection& collection) {
    return collection.engine().files(u"quor"_s, QString(), u"html"_s);
}

/// The page is there, and so is the place on it that the address names.
bool resolves(const HelpCollection& collection, const QUrl& url) {
    const QString text = pageText(collection, url);
    return !text.isEmpty() &&
           (!url.hasFragment() || text.contains(u"<a name=\"%1\">"_s.arg(url.fragment())));
}

/// What the page names in an attribute.
QStringList attributes(const QString& text, const QString& name) {
    QStringList values;
    const QRegularExpression pattern(u"\\s%1=\"([^\"]*)\""_s.arg(name));
    for (const auto& match : pattern.globalMatch(text)) {
        values << match.captured(1);
    }
    return values;
}

} // namespace

void TestHelpPages::eachTopicHasAPage_data() {
    QTest::addColumn<QString>("page");
    for (const char* page :
         {"contatti.html", "3compat.html", "1nuovo.html", "2prev.html", "Sistemi.html",
          "2stato.html", "2person.html", "2settimanale.html", "2persset.html", "4esporta.html",
          "4stampa.html", "leggere-grafico.html", "indice.html"}) {
        QTest::newRow(page) << QString::fromLatin1(page);
    }
}

void TestHelpPages::eachTopicHasAPage() {
    QFETCH(QString, page);
    HelpCollection collection(collectionFile());
    QVERIFY(collection.isReadable());
    const QString text = pageText(collection, helpPageUrl(page));
    static const QRegularExpression title(u"<title>([^<]+)</title>"_s);
    const QString heading = title.match(text).captured(1);
    QVERIFY(!heading.isEmpty());
    QVERIFY(text.contains(u"<h1>%1</h1>"_s.arg(heading)));
    // Topics are told apart by letter case.
    QVERIFY(pageText(collection, helpPageUrl(u"sistemi.html"_s)).isEmpty());
}

void TestHelpPages::eachLinkLeadsSomewhere() {
    HelpCollection collection(collectionFile());
    const QList<QUrl> all = pages(collection);
    QVERIFY(all.size() >= 20);
    int links = 0;
    for (const QUrl& page : all) {
        const QString text = pageText(collection, page);
        for (const QString& link : attributes(text, u"href"_s)) {
            const QUrl target = page.resolved(QUrl(link));
            QVERIFY2(resolves(collection, target), qPrintable(page.fileName() + u" -> "_s + link));
            ++links;
        }
        for (const QString& picture : attributes(text, u"src"_s)) {
            const QByteArray data = collection.engine().fileData(page.resolved(QUrl(picture)));
            QVERIFY2(!QImage::fromData(data).isNull(),
                     qPrintable(page.fileName() + u" -> "_s + picture));
        }
    }
    QVERIFY(links > 100);
}

void TestHelpPages::eachContentsEntryAndKeywordLeadsSomewhere() {
    HelpCollection collection(collectionFile());
    QHelpEngine& engine = collection.engine();
    QHelpContentModel* contents = engine.contentModel();
    QTRY_VERIFY(contents->rowCount() > 0);
    QStringList inContents;
    std::function<void(const QModelIndex&)> visit = [&](const QModelIndex& parent) {
        for (int row = 0; row < contents->rowCount(parent); ++row) {
            const QModelIndex index = contents->index(row, 0, parent);
            const QUrl url = contents->contentItemAt(index)->url();
            QVERIFY2(resolves(collection, url), qPrintable(url.toString()));
            inContents << url.fileName();
            visit(index);
        }
    };
    visit({});
    for (const QUrl& page : pages(collection)) {
        QVERIFY2(inContents.contains(page.fileName()), qPrintable(page.fileName()));
    }

    QHelpIndexModel* index = engine.indexModel();
    QTRY_VERIFY(index->rowCount() > 40);
    const QStringList keywords = index->stringList();
    for (const QString& keyword : keywords) {
        const QList<QHelpLink> links = engine.documentsForKeyword(keyword);
        QVERIFY2(!links.isEmpty(), qPrintable(keyword));
        for (const QHelpLink& link : links) {
            QVERIFY2(resolves(collection, link.url), qPrintable(keyword));
        }
    }
}

void TestHelpPages::pagesLeaveTextAndBackgroundToThePalette() {
    HelpCollection collection(collectionFile());
    static const QRegularExpression style(u"style=\"([^\"]*)\""_s);
    for (const QUrl& page : pages(collection)) {
        const QString text = pageText(collection, page);
        for (const auto& match : style.globalMatch(text)) {
            // A colour of ours brings the other one of the pair along.
            const QString declarations = u' ' + match.captured(1);
            QCOMPARE(declarations.contains(u"background-color:"_s),
                     declarations.contains(u" color:"_s));
        }
        QVERIFY(!text.contains(u"<font"_s) && !text.contains(u"bgcolor"_s));
    }
    const QString sheet = pageText(collection, helpPageUrl(u"quor.css"_s));
    QVERIFY(!sheet.isEmpty());
    QVERIFY(!sheet.contains(u"color:"_s));
}

void TestHelpPages::collectionIsOpenedAsACopy() {
    const QFileInfo original(collectionFile());
    HelpCollection collection(collectionFile());
    QVERIFY(collection.isReadable());
    const QFileInfo copy(collection.engine().collectionFile());
    QVERIFY(copy.absolutePath() != original.absolutePath());
    QVERIFY(copy.isWritable());
}

} // namespace quor::test
