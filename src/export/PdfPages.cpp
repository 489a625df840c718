#include "export/PdfPages.h"

#include <QList>
#include <QRegularExpression>
#include <QSet>
#include <QString>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

// A document of this kind ends with a table of its objects, a trailer that names the topmost one,
// and the place of the table. Newer objects that are appended with a table of their own, and the
// place of the older table, has changed the document: a reader starts at the end.

/// Reads the document as far as it has to be known: the objects of the tree of pages.
class Structure {
  public:
    explicit Structure(const QByteArray& pdf)
        : m_text(QString::fromLatin1(pdf)) { // one character a byte
        const qsizetype trailer = m_text.lastIndexOf(u"trailer"_s);
        if (trailer < 0) {
            return;
        }
        const QString end = m_text.sliced(trailer);
        m_size = number(end, u"/Size\\s+(\\d+)"_s);
        m_root = number(end, u"/Root\\s+(\\d+)\\s+0\\s+R"_s);
        m_table = number(end, u"startxref\\s+(\\d+)"_s);
        m_tree = number(object(m_root), u"/Pages\\s+(\\d+)\\s+0\\s+R"_s);
        QSet<int> seen;
        collect(m_tree, seen);
    }

    [[nodiscard]] bool isKnown() const {
        return m_size > 0 && m_table > 0 && m_tree > 0 && !m_pages.isEmpty();
    }
    [[nodiscard]] int size() const { return m_size; }
    [[nodiscard]] int root() const { return m_root; }
    [[nodiscard]] int table() const { return m_table; }
    [[nodiscard]] int tree() const { return m_tree; }
    /// What an object holds, between the lines that frame it.
    [[nodiscard]] QByteArray content(int objectNumber) const {
        const QString text = object(objectNumber);
        return text.sliced(text.indexOf(u"obj"_s) + 3).trimmed().toLatin1();
    }
    /// Object numbers of the pages, in their order.
    [[nodiscard]] const QList<int>& pages() const { return m_pages; }

  private:
    /// 0 when there is none.
    static int number(const QString& text, const QString& pattern) {
        return QRegularExpression(pattern).match(text).captured(1).toInt();
    }

    /// The newest object of this number; empty when there is none.
    [[nodiscard]] QString object(int objectNumber) const {
        const QRegularExpression start(
            u"(?:^|[\\r\\n])%1 0 obj\\b"_s.arg(QString::number(objectNumber)));
        QRegularExpressionMatch match;
        const qsizetype at = m_text.lastIndexOf(start, -1, &match);
        const qsizetype end = at < 0 ? -1 : m_text.indexOf(u"endobj"_s, at);
        return end < 0 ? QString() : m_text.sliced(at, end - at);
    }

    void collect(int objectNumber, QSet<int>& seen) {
        if (objectNumber == 0 || seen.contains(objectNumber)) {
            return;
        }
        seen.insert(objectNumber);
        const QString text = object(objectNumber);
        static const QRegularExpression page(u"/Type\\s*/Page\\b"_s);
        if (text.contains(page)) {
            m_pages << objectNumber;
            return;
        }
        static const QRegularExpression kids(u"/Kids\\s*\\[([^\\]]*)\\]"_s);
        static const QRegularExpression reference(u"(\\d+)\\s+0\\s+R"_s);
        const QString list = kids.match(text).captured(1);
        for (const QRegularExpressionMatch& kid : reference.globalMatch(list)) {
            collect(kid.captured(1).toInt(), seen);
        }
    }

    QString m_text;
    int m_size = 0;
    int m_root = 0;
    int m_table = 0;
    int m_tree = 0;
    QList<int> m_pages;
};

} // namespace

std::optional<QByteArray> selectPages(const QByteArray& pdf, std::span<const PageSpan> spans) {
    if (spans.empty()) {
        return pdf;
    }
    const Structure structure(pdf);
    if (!structure.isKnown()) {
        return {};
    }
    QList<int> chosen;
    for (const PageSpan& span : spans) {
        for (int page = std::max(span.first, 1);
             page <= std::min(span.last, static_cast<int>(structure.pages().size())); ++page) {
            chosen << structure.pages().at(page - 1);
        }
    }
    if (chosen.isEmpty()) {
        return {};
    }
    QByteArray result = pdf;
    if (!result.endsWith('\n')) {
        result += '\n';
    }
    QByteArray table = "xref\n";
    const auto add = [&result, &table](int objectNumber, const QByteArray& content) {
        constexpr int placeDigits = 10;
        const QByteArray number = QByteArray::number(objectNumber);
        table += number + " 1\n" +
                 QByteArray::number(result.size()).rightJustified(placeDigits, '0') + " 00000 n \n";
        result += number + " 0 obj\n" + content + "\nendobj\n";
    };
    QByteArray kids;
    int size = structure.size();
    QSet<int> used;
    for (int page : chosen) {
        if (used.contains(
                page)) { // no page stands twice in the tree: a copy has a number of its own
            add(size, structure.content(page));
            page = size++;
        }
        used.insert(page);
        kids += QByteArray::number(page) + " 0 R ";
    }
    add(structure.tree(), "<</Type /Pages\n/Count " + QByteArray::number(chosen.size()) +
                              "\n/Kids [" + kids.trimmed() + "]>>");
    const qsizetype place = result.size();
    result += table + "trailer\n<</Size " + QByteArray::number(size) + "\n/Root " +
              QByteArray::number(structure.root()) + " 0 R\n/Prev " +
              QByteArray::number(structure.table()) + ">>\nstartxref\n" +
              QByteArray::number(place) + "\n%%EOF\n";
    return result;
}

} // namespace quor
