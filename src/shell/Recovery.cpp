#include "shell/Recovery.h"

#include "toolkit/Messages.h"

#include <QApplication>
#include <QDir>
#include <QTimer>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr std::chrono::seconds interval(2);

QString title() {
    return u"Recupero"_s;
}

/// Characters that stand on one line of a box in an ordinary font.
constexpr qsizetype longestLine = 60;

/// The first characters, and a mark that there are more.
QString beginning(const QString& text, qsizetype size) {
    if (text.size() <= size) {
        return text;
    }
    const qsizetype end = size - 1;
    return text.first(text[end].isLowSurrogate() ? end - 1 : end) + u'…';
}

/// The file's own name is what is looked for in a path: folders give way to it.
QString shortened(const QString& path, qsizetype size) {
    if (path.size() <= size) {
        return path;
    }
    const QString name = path.sliced(path.lastIndexOf(u'/') + 1);
    const qsizetype rest = size - name.size() - 1; // a slash
    return rest < 1 ? beginning(name, size)
                    : beginning(path.chopped(name.size() + 1), rest) + u'/' + name;
}

QString whose(const LeftWork& left) {
    if (!left.work.isSystem) {
        const QString head = u"Bioritmo di "_s;
        return left.name.isEmpty() ? u"Bioritmo senza nome"_s
                                   : head + beginning(left.name, longestLine - head.size());
    }
    return left.members == 1 ? u"Sistema con un bioritmo"_s
                             : u"Sistema con %1 bioritmi"_s.arg(left.members);
}

QString ownFile(const LeftWork& left) {
    const QString head = u"File: "_s;
    return head + (left.work.path.isEmpty() ? u"nessuno"_s
                                            : shortened(left.work.path, longestLine - head.size()));
}

QString question(const LeftWork& left, std::size_t others) {
    QStringList lines{
        u"Quor è terminato prima che queste modifiche fossero salvate."_s, QString(), whose(left),
        ownFile(left),
        u"Ultima modifica: %1 alle %2"_s.arg(shortDate(toDateValue(left.changed.date())),
                                             left.changed.time().toString(u"HH:mm"_s))};
    if (left.fileIsNewer) {
        lines << QString() << u"Attenzione: il file è stato riscritto dopo queste modifiche."_s;
    }
    if (others > 0) {
        lines << QString()
              << (others == 1 ? u"C'è un altro recupero in attesa."_s
                              : u"Ci sono altri %1 recuperi in attesa."_s.arg(others));
    }
    lines << QString() << u"Si desidera recuperare queste modifiche?"_s;
    return lines.join(u'\n');
}

enum class Choice : std::uint8_t { recover, remove, later };

Choice askAbout(QWidget* parent, const LeftWork& left, std::size_t others) {
    const QStringList buttons{u"&Recupera"_s, u"&Elimina"_s, u"&Più tardi"_s};
    for (;;) {
        const auto choice =
            static_cast<Choice>(askChoice(parent, question(left, others), title(), buttons));
        if (choice != Choice::remove ||
            askBeforeLoss(parent,
                          whose(left) + u"\n\nLe modifiche non salvate andranno perse.\n"
                                        "Si desidera eliminarle?"_s,
                          title()) == Answer::yes) {
            return choice;
        }
    }
}

} // namespace

Recovery::Recovery(Program& program, const QString& folder, QObject* parent)
    : QObject(parent)
    , m_program(program)
    , m_store(folder) {
    auto* timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &Recovery::update);
    timer->start(interval);
    // A desktop that ends the session asks for this first, and may not wait after it.
    connect(qApp, &QGuiApplication::commitDataRequest, this, &Recovery::update);
}

Recovery::Taken Recovery::offer(QWidget* parent) {
    RecoveryStore::Left left = m_store.left();
    for (const QString& file : left.damaged) {
        showWarning(parent,
                    u"Un file con modifiche non salvate è danneggiato e non può essere recuperato. "
                    "Resta conservato come:\n%1"_s.arg(QDir::toNativeSeparators(file)),
                    title());
    }
    std::size_t others = left.works.size();
    for (LeftWork& work : left.works) {
        switch (askAbout(parent, work, --others)) {
        case Choice::recover: {
            work.open(m_program);
            m_seen = m_program;
            const bool isSystem = work.work.isSystem;
            m_store.adopt(std::move(work));
            return isSystem ? Taken::system : Taken::biorhythm;
        }
        case Choice::remove:
            RecoveryStore::remove(std::move(work));
            break;
        case Choice::later:
            break;
        }
    }
    return Taken::nothing;
}

void Recovery::keep() {
    update();
    m_ended = true;
}

void Recovery::forget() {
    if (!m_ended) {
        m_store.clear();
    }
    m_ended = true;
}

void Recovery::update() {
    if (m_ended || isSameWork(m_program, m_seen)) {
        return;
    }
    if (const auto work = unsavedWork(m_program)) {
        // Where it cannot be written the program goes on without: there is nothing the user could
        // do about it, and the next time it may succeed.
        if (m_store.write(*work)) {
            m_seen = m_program;
        }
    } else if (QApplication::activeModalWidget() == nullptr) {
        // Not from under a box: a command that says something in one may be about to mark the data
        // as modified again, as after saving a member of a changed system.
        m_store.clear();
        m_seen = m_program;
    }
}

} // namespace quor
