// Any bytes as the file that an ended run has left. The first byte says what the others are: an
// even one, the whole file; an odd one, a file to which only its check sum is missing, which no
// mutation would ever guess.

#include "Input.h"
#include "storage/RecoveryStore.h"

#include <QCryptographicHash>
#include <QDir>

namespace {

using quor::fuzz::check;

QByteArray withCheckSum(const QByteArray& bytes) {
    return bytes + '"' + QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex() +
           "\"\r\n";
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const bool isSystem = (data[0] & 2U) != 0;
    const QByteArray bytes = quor::fuzz::bytesOf(data + 1, size - 1);
    const QByteArray file = (data[0] & 1U) != 0 ? withCheckSum(bytes) : bytes;

    if (const auto work = quor::unsealedWork(file, isSystem)) {
        check(work->isSystem == isSystem, "the kind is the file's");
        check(file.startsWith(work->content), "the work is what the file begins with");
        check(work->path.isEmpty() ||
                  (QDir::isAbsolutePath(work->path) && !work->path.contains(QChar(u'\0'))),
              "its file has an absolute path or none");
        check(quor::unsealedWork(quor::sealedWork(*work), isSystem) == work,
              "what was found can be put aside again");
    }

    // Whatever is put aside is found whole, or not at all.
    const quor::UnsavedWork work{
        .isSystem = isSystem,
        .content = bytes + "\r\n",
        .path = u'/' + quor::fuzz::textOf(data + 1, size - 1).remove(QChar(u'\0'))};
    QByteArray sealed = quor::sealedWork(work);
    check(quor::unsealedWork(sealed, isSystem) == work, "what was put aside is found");
    const qsizetype place = data[0] * sealed.size() / 256;
    check(!quor::unsealedWork(sealed.first(place), isSystem),
          "the beginning of it counts as nothing");
    sealed[place] = static_cast<char>(sealed[place] ^ 1);
    check(!quor::unsealedWork(sealed, isSystem), "neither does what was changed");
    return 0;
}
