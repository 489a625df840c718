#include "export/Paper.h"

#include "toolkit/LateModule.h"

namespace quor {

namespace {

constexpr LateModule paperModule{
    .file = "quor-paper.so", .function = "quorPaper", .task = u"mostra e stampa le pagine"};

const Paper*& loadedPaper() {
    static const Paper* loaded = nullptr;
    return loaded;
}

} // namespace

const Paper* paper(QString& fault) {
    if (loadedPaper() != nullptr) {
        return loadedPaper();
    }
    const auto function = reinterpret_cast<const Paper* (*)()>(loadModule(paperModule, fault));
    const Paper* found = function != nullptr ? function() : nullptr;
    if (found != nullptr && isOfThisVersion(paperModule, found->version, fault)) {
        loadedPaper() = found;
    }
    return loadedPaper();
}

void usePaper(const Paper* paper) {
    loadedPaper() = paper;
}

} // namespace quor
