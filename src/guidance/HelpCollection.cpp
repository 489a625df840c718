#include "guidance/HelpCollection.h"

#include "guidance/HelpAddress.h"
#include "toolkit/TemporaryFolder.h"

#include <QDir>
#include <QFile>
#include <QFileDevice>
#include <QFileInfo>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QHelpSearchEngine>
#include <QString>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// Both files of the help are databases, which begin with these bytes.
bool isDatabase(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.peek(64).startsWith("SQLite format 3");
}

bool copyDatabase(const QString& from, const QString& to) {
    return QFile::copy(from, to) &&
           QFile::setPermissions(to, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

/// Makes the first folder that is not there yet of those called 1, 2...
/// @return its path, empty when it cannot be made
QString makeNumberedFolder(const QDir& parent) {
    for (int number = 1;; ++number) {
        const QString name = QString::number(number);
        if (parent.mkdir(name)) {
            return parent.filePath(name);
        }
        if (!parent.exists(name)) {
            return {};
        }
    }
}

} // namespace

HelpCollection::HelpCollection(const QString& file, const QString& copies) {
    if (copies.isEmpty()) {
        m_ownFolder = makeTemporaryFolder();
        m_folder = m_ownFolder != nullptr ? m_ownFolder->path() : QString();
    } else {
        m_folder = makeNumberedFolder(QDir(copies));
    }
    const QDir folder(m_folder);
    const QString copy = folder.filePath(u"Quor.qhc"_s);
    const QString pages = u"Quor.qch"_s;
    const QString pagesFile = QFileInfo(file).dir().filePath(pages);
    const bool whole = isDatabase(file) && isDatabase(pagesFile);
    const bool copied = whole && !m_folder.isEmpty() && copyDatabase(file, copy) &&
                        copyDatabase(pagesFile, folder.filePath(pages));
    m_lacksPlace = whole && !copied;
    m_engine = std::make_unique<QHelpEngine>(copy);
    if (copied) {
        m_engine->setReadOnly(false);
        m_engine->setUsesFilterEngine(true);
        m_readable = m_engine->setupData() && !m_engine->fileData(helpPageUrl({})).isEmpty();
    }
    QHelpSearchEngine* searches = m_engine->searchEngine();
    connect(searches, &QHelpSearchEngine::indexingFinished, this, [this] {
        m_indexed = true;
        startSearch();
    });
    connect(searches, &QHelpSearchEngine::searchingFinished, this, &HelpCollection::finishSearch);
}

HelpCollection::~HelpCollection() {
    m_engine.reset();
    if (m_ownFolder == nullptr && !m_folder.isEmpty()) {
        QDir(m_folder).removeRecursively();
    }
}

void HelpCollection::makeSearchIndex() {
    m_engine->searchEngine()->scheduleIndexDocumentation();
}

void HelpCollection::search(const QString& expression) {
    m_nextSearch = expression;
    startSearch();
}

void HelpCollection::startSearch() {
    if (m_indexed && !m_searching && !m_nextSearch.isEmpty()) {
        m_searching = true;
        m_engine->searchEngine()->search(std::exchange(m_nextSearch, {}));
    }
}

void HelpCollection::finishSearch(int pages) {
    m_searching = false;
    if (m_nextSearch.isEmpty()) {
        emit found(pages);
    }
    startSearch();
    if (!m_searching) {
        emit searchEnded();
    }
}

void HelpCollection::endUse() {
    // When its lists are filled the engine changes their cursors, whether they are still there or
    // not.
    QHelpContentModel* contents = m_engine->contentModel();
    disconnect(contents, &QHelpContentModel::contentsCreationStarted, nullptr, nullptr);
    disconnect(contents, &QHelpContentModel::contentsCreated, nullptr, nullptr);
    QHelpIndexModel* index = m_engine->indexModel();
    disconnect(index, &QHelpIndexModel::indexCreationStarted, nullptr, nullptr);
    disconnect(index, &QHelpIndexModel::indexCreated, nullptr, nullptr);
    m_nextSearch.clear();
    m_engine->searchEngine()->cancelIndexing();
}

} // namespace quor
