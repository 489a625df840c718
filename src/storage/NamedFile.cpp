#include "storage/NamedFile.h"

#include "storage/BiorhythmFile.h"
#include "storage/FileKind.h"
#include "storage/SystemFile.h"

#include <QFileInfo>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

QString unreadable(const QString& path, const QString& reason) {
    return u"il file non si può leggere: %1 (%2)"_s.arg(path, reason);
}

std::optional<QString> openSystem(const QString& path, Program& program) {
    if (const auto fault = readSystemFile(path, program)) {
        return unreadable(path, *fault);
    }
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

std::optional<QString> openBiorhythm(const QString& path, Program& program) {
    if (const auto fault = readBiorhythmFile(path, program)) {
        return unreadable(path, *fault);
    }
    if (!program.biorhythm.isPresent()) {
        return u"il file non contiene nessuna persona: "_s + path;
    }
    return std::nullopt;
}

} // namespace

std::optional<QString> openNamedFile(const QString& path, Program& program) {
    resetToStartUp(program);
    const FileKind kind = fileKindByEnding(path);
    if (kind == FileKind::other) {
        return u"il file non è né un bioritmo (.bio) né un sistema (.brs): "_s + path;
    }
    if (!QFileInfo::exists(path)) {
        return u"il file non esiste: "_s + path;
    }
    return kind == FileKind::system ? openSystem(path, program) : openBiorhythm(path, program);
}

} // namespace quor
