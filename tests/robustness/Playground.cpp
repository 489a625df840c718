#include "robustness/Playground.h"

#include "export/Paper.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray systemOf(int members) {
    QByteArray text = QByteArray::number(members) + "\r\n";
    for (int i = 0; i < members; ++i) {
        text += "\"Persona " + QByteArray::number(i) + "\"\r\n#19" +
                QByteArray::number(10 + i % 90) + "-03-15#\r\n";
    }
    return text + "#2026-11-21#"
                  "\r\n2\r\n0\r\n16711680\r\n255\r\n65280\r\n65535\r\n255\r\n65280\r\n65535\r\n";
}

} // namespace

Playground::Playground() {
    usePaper(quorPaper());
    const QDir examples(QStringLiteral(QUOR_EXAMPLES));
    for (const QString& name : examples.entryList(QDir::Files, QDir::Name)) {
        m_good << name;
    }
    for (const QString& kind : {u"bio"_s, u"brs"_s}) {
        const QDir corpus(QStringLiteral(QUOR_CORPUS) + u"/fuzz_"_s + kind);
        for (const QString& name : corpus.entryList(QDir::Files, QDir::Name)) {
            if (name != u"largest.brs"_s) { // its windows are measured elsewhere
                m_toOpen << u"strani/"_s + name;
            }
        }
    }
    m_toOpen << m_good << m_good << m_good << u"vuoto.bio"_s << u"vuoto.brs"_s << u"cartella.bio"_s
             << u"giro.bio"_s << u"sospeso.brs"_s << u"tubo.bio"_s << u"manca.bio"_s
             << u"manca.brs"_s << u"lungo.bio"_s << u"cento.brs"_s << u"testo.txt"_s
             << u"salvato.bio"_s << u"salvato.brs"_s;
    m_toSave << u"salvato.bio"_s << u"salvato.brs"_s << u"altro"_s << u"altro"_s << u"vuoto.bio"_s
             << u"cartella.bio"_s << u"cartella.bio/dentro.bio"_s << u"testo.txt/sotto.bio"_s
             << u"manca/nuovo.bio"_s << QString(300, u'n') + u".bio"_s
             << u"con spazi e 'apici'.bio"_s << u"\u202Eoib.x.bio"_s << u"giro.bio"_s
             << u"tubo.bio"_s << m_good.constFirst();
    const auto inside = [this](QStringList& list) {
        for (QString& name : list) {
            name = path(name);
        }
    };
    tidy();
    inside(m_toOpen);
    inside(m_toSave);
    inside(m_good);

    QPdfWriter pdf(path(u"pagine.pdf"_s));
    QPainter painter(&pdf);
    painter.drawText(100, 100, u"uno"_s);
    pdf.newPage();
    painter.drawText(100, 100, u"due"_s);
    painter.end();
    setRendering("ok");
    qputenv("MONKEY_PLAYGROUND", QFile::encodeName(m_folder.path()));
    QDir().mkpath(path(u"a/b/c"_s));
    QDir::setCurrent(path(u"a/b/c"_s)); // a name like "../x" stays inside
}

void Playground::write(const QString& name, const QByteArray& content) const {
    QFile::remove(path(name));
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("cannot write the monkey's files");
    }
}

void Playground::tidy() {
    QDir(programFolder()).removeRecursively();
    QDir(path(u"cartella.bio"_s)).removeRecursively();
    QDir().mkpath(programFolder());
    QDir().mkpath(path(u"strani"_s));
    QDir().mkpath(path(u"cartella.bio"_s));
    for (const QString& folder :
         {QStringLiteral(QUOR_CORPUS "/fuzz_bio"), QStringLiteral(QUOR_CORPUS "/fuzz_brs")}) {
        QDirIterator files(folder, QDir::Files);
        while (files.hasNext()) {
            files.next();
            write(u"strani/"_s + files.fileName(), contentOf(files.filePath()));
        }
    }
    const QDir examples(QStringLiteral(QUOR_EXAMPLES));
    for (const QString& name : examples.entryList(QDir::Files, QDir::Name)) {
        write(name, contentOf(examples.filePath(name)));
    }
    write(u"vuoto.bio"_s, {});
    write(u"vuoto.brs"_s, {});
    write(u"testo.txt"_s, "testo");
    write(u"lungo.bio"_s, QByteArray(1 << 20, 'A'));
    write(u"cento.brs"_s, systemOf(100));
    for (const QString& left : {u"salvato.bio"_s, u"salvato.brs"_s, u"altro.bio"_s, u"altro.brs"_s,
                                u"giro.bio"_s, u"sospeso.brs"_s, u"tubo.bio"_s}) {
        QFile::remove(path(left));
    }
    QFile::link(u"giro.bio"_s, path(u"giro.bio"_s));
    QFile::link(u"nessuno.brs"_s, path(u"sospeso.brs"_s));
    mkfifo(QFile::encodeName(path(u"tubo.bio"_s)).constData(), S_IRUSR | S_IWUSR);
}

void Playground::setRendering(const QByteArray& manner) const {
    write(u"resa"_s, manner + '\n');
}

const QStringList& names() {
    static const QStringList all{u"Anna"_s, u"Bruno"_s, u"Maria Rossi"_s, u"Niccolò D'Amico"_s,
                                 u"Zoë"_s};
    return all;
}

const QStringList& dates() {
    static const QStringList all{u"25/12/1981"_s, u"oggi"_s,       u"13 Nov 1945"_s,
                                 u"05-06-85"_s,   u"29/2/2000"_s,  u"1990-07-08"_s,
                                 u"1/1/100"_s,    u"31/12/9999"_s, u"1 gennaio 1970"_s};
    return all;
}

const QStringList& numbers() {
    static const QStringList all{u"0"_s,      u"1"_s,   u"10"_s,    u"365"_s,
                                 u"-1"_s,     u"-19"_s, u"32767"_s, u"32768"_s,
                                 u"-32768"_s, u"3,5"_s, u"1e9"_s,   u"99999999999999999999"_s};
    return all;
}

const QStringList& hostileTexts() {
    static const QStringList all{
        QString(),
        u" "_s,
        u"\t\n\r"_s,
        QString(4000, u'W'),
        QString(300, u'\u0301'),
        u"<b>grassetto</b><img src=\"x.png\">"_s,
        u"&amp;&uuml;&"_s,
        u"\"virgolette\""_s,
        u"'; DROP TABLE persone; --"_s,
        u"\u202Eorebla \u05D0\u05D1\u05D2 \u0645\u0631\u062D\u0628\u0627"_s,
        u"\U0001F468\u200D\U0001F469\u200D\U0001F467 \U0001F1EE\U0001F1F9"_s,
        QString(QChar(0xD800)) + QChar(0xFFFF) + QChar(0xFFFE),
        QString(QChar(0)) + u"dopo"_s,
        QString(QChar(1)) + QChar(7) + QChar(27) + QChar(127),
        u"%s%n%1%2%99"_s,
        u"../../x"_s,
        u"a/b\\c:d*e?f\"g<h>i|j"_s,
        u"CON"_s,
        u"#1981-12-25#"_s,
        u"31/2/2000"_s,
        u"0/0/0"_s,
        u"99/99/99999999999999"_s,
        u"٢٥/١٢/١٩٨١"_s,
        u"-5"_s,
        u"NULL"_s,
    };
    return all;
}

} // namespace quor::test
