#include "export/ExportBatch.h"

#include "core/Biorhythm.h"
#include "core/DateEntry.h"
#include "export/ExportPictures.h"
#include "export/ExportRun.h"
#include "storage/NamedFile.h"

#include <QDir>
#include <QTextStream>

#include <optional>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr int success = 0;
constexpr int failure = 1;

/// Carries the request out. @return why nothing could be exported
std::optional<QString> start(const BatchRequest& request, Program& program, QString& folder) {
    if (auto wrong = openNamedFile(request.file, program)) {
        return wrong;
    }
    if (!request.date.isEmpty()) {
        const auto date = acceptCalculationDate(request.date);
        if (!date) {
            return u"la data non è valida: "_s + request.date;
        }
        program.biorhythm.calculationDate = *date;
    }
    folder = request.outputFolder.isEmpty() ? u"."_s : request.outputFolder;
    if (!QDir().mkpath(folder)) {
        return u"la cartella non si può creare: "_s + folder;
    }
    return std::nullopt;
}

} // namespace

int exportBatch(const BatchRequest& request, QTextStream& output, QTextStream& errors) {
    Program program;
    QString folder;
    if (const auto wrong = start(request, program, folder)) {
        errors << "quor: " << printableName(*wrong)
               << '\n'; // a path may hold what a terminal obeys
        errors.flush();
        return failure;
    }
    const PageVariant variant = request.forPrint ? PageVariant::print : PageVariant::screen;
    ExportRun run(
        program,
        {.graph = true,
         .weekly = true,
         .page = true,
         .variant = variant,
         .scope = program.state.systemOpen ? ExportScope::wholeSystem : ExportScope::person,
         .folder = folder,
         .pictureSize = pictureSize(variant, request.forPrint ? defaultPaper() : defaultScreen())});
    while (!run.isOver()) {
        const ExportResult product = run.next();
        QTextStream& stream = product.failed ? errors : output;
        stream << printableName(product.path) << ": " << product.result << '\n';
        stream.flush(); // whoever reads along sees where the run is
    }
    const bool isListed = output.status() == QTextStream::Ok;
    if (run.errorCount() > 0) {
        errors << "quor: " << run.errorText() << '\n';
    }
    if (!isListed) {
        errors << "quor: l'elenco dei file non si può scrivere sullo standard output\n";
    }
    errors.flush();
    return run.errorCount() == 0 && isListed ? success : failure;
}

} // namespace quor
