#include "export/ExportBatch.h"

#include "core/Biorhythm.h"
#include "core/DateEntry.h"
#include "export/ExportPictures.h"
#include "export/ExportRun.h"
#include "storage/BiorhythmFile.h"
#include "storage/LineNotation.h"
#include "storage/SystemFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <algorithm>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr int success = 0;
constexpr int failure = 1;

bool isSystemFile(const QString& path) {
    return path.endsWith(u".brs"_s, Qt::CaseInsensitive);
}

bool isBiorhythmFile(const QString& path) {
    return path.endsWith(u".bio"_s, Qt::CaseInsensitive);
}

/// Reads a system's file and opens the system. @return what is wrong with it
std::optional<QString> openSystem(const QString& path, Program& program) {
    readSystemFile(path, program);
    program.state.systemFilePath = path;
    program.state.systemOpen = true;
    // What is left of a damaged file may hold members without a name and a birth.
    std::vector<SystemMember>& members = program.state.systemMembers;
    members.resize(static_cast<std::size_t>(std::max<int>(program.state.systemCount, 0)));
    std::erase(members, SystemMember{});
    program.state.systemCount = static_cast<std::int16_t>(members.size());
    if (members.empty()) {
        return u"il sistema non contiene nessuna persona: "_s + path;
    }
    return std::nullopt;
}

/// Reads a person's file. @return what is wrong with it
std::optional<QString> openBiorhythm(const QString& path, Program& program) {
    readBiorhythmFile(path, program);
    if (!program.biorhythm.isPresent()) {
        return u"il file non contiene nessuna persona: "_s + path;
    }
    return std::nullopt;
}

/// Reads the file into fresh data. @return what is wrong with it
std::optional<QString> open(const QString& path, Program& program) {
    resetToStartUp(program);
    if (!isSystemFile(path) && !isBiorhythmFile(path)) {
        return u"il file non è né un bioritmo (.bio) né un sistema (.brs): "_s + path;
    }
    if (!QFileInfo::exists(path)) {
        return u"il file non esiste: "_s + path;
    }
    // The readers take what they find and do not complain.
    if (QFile file(path); !openForReading(file)) {
        return u"il file non si può leggere: "_s + path;
    }
    return isSystemFile(path) ? openSystem(path, program) : openBiorhythm(path, program);
}

/// Carries the request out. @return why nothing could be exported
std::optional<QString> start(const BatchRequest& request, Program& program, QString& folder) {
    if (auto wrong = open(request.file, program)) {
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
        errors << "quor: " << *wrong << '\n';
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
        stream << product.path << ": " << product.result << '\n';
        stream.flush(); // whoever reads along sees where the run is
    }
    if (run.errorCount() > 0) {
        errors << "quor: " << run.errorText() << '\n';
        errors.flush();
        return failure;
    }
    return success;
}

} // namespace quor
