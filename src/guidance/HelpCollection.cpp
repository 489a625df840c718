#include "guidance/HelpCollection.h"

#include "guidance/HelpAddress.h"

#include <QDir>
#include <QFile>
#include <QFileDevice>
#include <QFileInfo>
#include <QHelpEngine>
#include <QString>

#include <memory>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// Both files of the help are databases, which begin with these bytes.
bool copyDatabase(const QString& from, const QString& to) {
    QFile file(from);
    if (!file.open(QIODevice::ReadOnly) || !file.peek(64).startsWith("SQLite format 3")) {
        return false;
    }
    file.close();
    return QFile::copy(from, to) &&
           QFile::setPermissions(to, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

} // namespace

HelpCollection::HelpCollection(const QString& file) {
    const QString copy = m_folder.filePath(u"Quor.qhc"_s);
    const QString pages = u"Quor.qch"_s;
    const bool copied =
        m_folder.isValid() && copyDatabase(file, copy) &&
        copyDatabase(QFileInfo(file).dir().filePath(pages), m_folder.filePath(pages));
    m_engine = std::make_unique<QHelpEngine>(copy);
    if (copied) {
        m_engine->setReadOnly(false);
        m_engine->setUsesFilterEngine(true);
        m_readable = m_engine->setupData() && !m_engine->fileData(helpPageUrl({})).isEmpty();
    }
}

HelpCollection::~HelpCollection() = default;

} // namespace quor
