#pragma once

#include <QString>
#include <QTemporaryDir>

#include <memory>

class QHelpEngine;

namespace quor {

/// An opened help collection.
///
/// The engine writes beside the collection it reads (its search index at least), and an installed
/// collection lies where nobody may write. So what is opened is a copy of its own in a temporary
/// folder, which goes with this object; two running programs never meet there.
class HelpCollection {
  public:
    /// @param file "Quor.qhc", with "Quor.qch" beside it
    explicit HelpCollection(const QString& file);
    ~HelpCollection();
    HelpCollection(const HelpCollection&) = delete;
    HelpCollection& operator=(const HelpCollection&) = delete;
    HelpCollection(HelpCollection&&) = delete;
    HelpCollection& operator=(HelpCollection&&) = delete;

    /// False when a file is missing, damaged, or cannot be copied; the engine is then of no use.
    [[nodiscard]] bool isReadable() const { return m_readable; }
    [[nodiscard]] QHelpEngine& engine() { return *m_engine; }

  private:
    QTemporaryDir m_folder;
    std::unique_ptr<QHelpEngine> m_engine;
    bool m_readable = false;
};

} // namespace quor
