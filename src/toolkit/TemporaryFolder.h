#pragma once

#include <QTemporaryDir>

#include <memory>

namespace quor {

/// A new folder for temporary files, which goes with the object; nothing when it cannot be made.
[[nodiscard]] std::unique_ptr<QTemporaryDir> makeTemporaryFolder();

} // namespace quor
