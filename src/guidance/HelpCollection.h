#pragma once

#include <QObject>
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
///
/// The toolkit remembers the path of every collection it has ever opened. Who opens one again and
/// again therefore gives a folder for the copies, where the paths come back.
class HelpCollection : public QObject {
    Q_OBJECT

  public:
    /// @param file "Quor.qhc", with "Quor.qch" beside it
    /// @param copies an existing folder, nobody else's; for none the copy has one of its own
    explicit HelpCollection(const QString& file, const QString& copies = {});
    ~HelpCollection() override;
    HelpCollection(const HelpCollection&) = delete;
    HelpCollection& operator=(const HelpCollection&) = delete;
    HelpCollection(HelpCollection&&) = delete;
    HelpCollection& operator=(HelpCollection&&) = delete;

    /// False when a file is missing, damaged, or cannot be copied; the engine is then of no use.
    [[nodiscard]] bool isReadable() const { return m_readable; }
    /// True when nothing is wrong with the files but that there is no place for the copy.
    [[nodiscard]] bool lacksPlace() const { return m_lacksPlace; }
    [[nodiscard]] QHelpEngine& engine() { return *m_engine; }

    /// Makes the index that a search needs, in a thread.
    void makeSearchIndex();
    /// Searches all pages, in a thread, as soon as the index is there and the search before has
    /// ended. Of those that have to wait the last counts.
    /// @param expression in the language of the search engine
    void search(const QString& expression);
    /// Nobody looks at it or waits for a result any more, and the engine's lists may be deleted.
    /// The thread of a search cannot be stopped and must not lose the engine: this object has to
    /// live until `searchEnded`.
    void endUse();
    [[nodiscard]] bool isSearching() const { return m_searching; }

  signals:
    /// What was searched for last is found on so many pages, which the search engine has.
    void found(int pages);
    void searchEnded();

  private:
    void startSearch();
    void finishSearch(int pages);

    std::unique_ptr<QTemporaryDir> m_ownFolder; ///< where no folder for the copies was given
    QString m_folder;                           ///< with the copy; empty when it cannot be made
    std::unique_ptr<QHelpEngine> m_engine;
    bool m_readable = false;
    bool m_lacksPlace = false;
    bool m_indexed = false;
    bool m_searching = false;
    QString m_nextSearch; ///< empty for none
};

} // namespace quor
