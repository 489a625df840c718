#include "toolkit/TemporaryFolder.h"

#include <QDir>

#include <utility>

namespace quor {

std::unique_ptr<QTemporaryDir> makeTemporaryFolder() {
    // Where TMPDIR leads nowhere this is empty, and the toolkit would make the folder in the root.
    if (QDir::tempPath().isEmpty()) {
        return nullptr;
    }
    auto folder = std::make_unique<QTemporaryDir>();
    return folder->isValid() ? std::move(folder) : nullptr;
}

} // namespace quor
