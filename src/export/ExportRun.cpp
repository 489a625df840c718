#include "export/ExportRun.h"

#include "export/ExportPictures.h"
#include "export/SummaryPage.h"
#include "storage/WholeFile.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

ExportResult pictureResult(const ExportPicture& picture, const QString& path, const QString& lead) {
    const std::uint8_t code = ExportPng(picture.drawing, picture.font, picture.size, path);
    const QString result = resultText(code);
    return {.path = path,
            .logLine = lead + u" --> "_s + result,
            .result = result,
            .failed = code != pngWritten};
}

} // namespace

ExportRun::ExportRun(Program& program, ExportRequest request)
    : m_program(program)
    , m_request(std::move(request)) {
    if (m_request.scope == ExportScope::person) {
        m_persons = {{.name = program.biorhythm.name, .birthDate = program.biorhythm.birthDate}};
        m_prefixes = {exportPrefix(program, m_request.variant)};
    } else {
        const auto members = program.state.members();
        m_persons.assign(members.begin(), members.end());
        m_prefixes = exportPrefixes(program, m_request.variant);
    }
    if (m_request.graph) {
        m_kinds.push_back(Kind::graph);
    }
    if (m_request.weekly) {
        m_kinds.insert(m_kinds.end(),
                       {Kind::mean, Kind::physical, Kind::emotional, Kind::intellectual});
    }
    if (m_request.page) {
        m_kinds.push_back(Kind::page);
    }
}

QString ExportRun::caption() const {
    if (isOver()) {
        return {};
    }
    const Kind kind = m_kinds.at(static_cast<std::size_t>(m_done) % m_kinds.size());
    switch (kind) {
    case Kind::graph:
        return u"Esportazione grafico in corso..."_s;
    case Kind::page:
        return u"Esportazione HTML in corso..."_s;
    default:
        break;
    }
    const int row = static_cast<int>(kind) - static_cast<int>(Kind::mean);
    return u"Esportazione grafico settimanale n°%1 in corso..."_s.arg(row);
}

ExportResult ExportRun::next() {
    Q_ASSERT(!isOver());
    const auto step = static_cast<std::size_t>(m_done);
    if (step % m_kinds.size() == 0) {
        makeCurrent(step / m_kinds.size());
    }
    ExportResult result;
    switch (m_kinds.at(step % m_kinds.size())) {
    case Kind::graph:
        result = exportGraph();
        break;
    case Kind::mean:
        result = exportWeek(WeekRow::mean);
        break;
    case Kind::physical:
        result = exportWeek(WeekRow::physical);
        break;
    case Kind::emotional:
        result = exportWeek(WeekRow::emotional);
        break;
    case Kind::intellectual:
        result = exportWeek(WeekRow::intellectual);
        break;
    case Kind::page:
        result = exportPage();
        break;
    }
    ++m_done;
    m_errors += result.failed ? 1 : 0;
    return result;
}

QString ExportRun::errorText() const {
    return m_errors == 0 ? QString() : QString::number(m_errors) + u" errori rilevati!"_s;
}

QString ExportRun::summaryPath() const {
    return m_errors > 0 || m_pathPrefix.isEmpty() ? u"NULL"_s : summaryFile(m_pathPrefix);
}

void ExportRun::makeCurrent(std::size_t index) {
    const SystemMember& person = m_persons.at(index);
    Biorhythm& biorhythm = m_program.biorhythm;
    biorhythm.name = person.name;
    biorhythm.birthDate = person.birthDate;
    biorhythm.daysAtGraphStart = dayCountAtGraphStart(biorhythm);
    m_prefix = m_prefixes.at(index);
    m_pathPrefix = pathPrefix(m_request.folder, m_prefix);
}

ExportResult ExportRun::exportGraph() const {
    const Biorhythm& biorhythm = m_program.biorhythm;
    return pictureResult(graphPicture(biorhythm, m_request.pictureSize), graphFile(m_pathPrefix),
                         u"Grafico di "_s + biorhythm.name);
}

ExportResult ExportRun::exportWeek(WeekRow row) const {
    const Biorhythm& biorhythm = m_program.biorhythm;
    const QSize size = weekPictureSize(row, m_request.pictureSize);
    return pictureResult(weekPicture(biorhythm, row, size), weekFile(m_pathPrefix, row),
                         u"Stato settimanale di "_s + biorhythm.name);
}

ExportResult ExportRun::exportPage() const {
    const Biorhythm& biorhythm = m_program.biorhythm;
    const QString path = summaryFile(m_pathPrefix);
    const SummarySections sections{.graph = m_request.graph, .weekly = m_request.weekly};
    const QByteArray page = summaryPage(biorhythm, sections, m_prefix, m_request.variant);
    // Nobody has chosen this name, so it leads nowhere else.
    const bool failed = QFileInfo(path).isSymLink() || writeWholeFile(path, page).has_value();
    const QString result = failed ? resultText(pngFileFailed) : u"Operazione completata"_s;
    return {.path = path,
            .logLine = u"File di riepilogo di "_s + biorhythm.name + u" --> "_s + result,
            .result = result,
            .failed = failed};
}

} // namespace quor
