#include "storage/FileKind.h"

using namespace Qt::StringLiterals;

namespace quor {

FileKind fileKind(const QString& path) {
    const QString ending = path.right(3).toLower();
    if (ending == u"bio"_s) {
        return FileKind::biorhythm;
    }
    return ending == u"brs"_s ? FileKind::system : FileKind::other;
}

FileKind fileKindByEnding(const QString& path) {
    constexpr qsizetype ending = 4;
    const bool hasEnding = path.size() >= ending && path.at(path.size() - ending) == u'.';
    return hasEnding ? fileKind(path) : FileKind::other;
}

} // namespace quor
