// Any bytes as the file of what the program remembers: only what a menu and a frame can use comes
// in, and what is written again reads back the same.

#include "Input.h"
#include "shell/StateFile.h"

#include <QDir>

#include <algorithm>

namespace {

using quor::fuzz::check;

/// Longer ones the system does not know, in bytes.
constexpr qsizetype longestPath = 4096;
constexpr qsizetype longestPlace = 1024;
/// What reading a file takes of it.
constexpr qsizetype largestFile = 131072;

void checkFiles(const QStringList& files) {
    check(files.size() <= quor::StateFile::recentCount, "not more files than are remembered");
    check(std::ranges::all_of(files,
                              [](const QString& path) {
                                  return path.toUtf8().size() <= longestPath &&
                                         QDir::isAbsolutePath(path) &&
                                         QDir::cleanPath(path) == path;
                              }),
          "paths are absolute, clean and not too long");
    check(std::ranges::none_of(files,
                               [](const QString& path) {
                                   return std::ranges::any_of(path, [](QChar c) {
                                       return c < u' ' || c == QChar::LineSeparator;
                                   });
                               }),
          "and stand in one line");
    check(QStringList(files).removeDuplicates() == 0, "none stands there twice");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using quor::StateFile;
    const StateFile::Contents contents = StateFile::parsed(quor::fuzz::bytesOf(data, size));
    check(contents.framePlace.size() <= longestPlace, "the place of the frame is a short one");
    checkFiles(contents.biorhythms);
    checkFiles(contents.systems);

    const QByteArray written = StateFile::written(contents);
    check(written.size() <= largestFile, "what is written is read whole");
    check(StateFile::parsed(written) == contents, "what is written reads back the same");
    return 0;
}
