#include "export/render/LocalRequests.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quor::render {

LocalRequests::LocalRequests(const QString& page, QObject* parent)
    : QWebEngineUrlRequestInterceptor(parent)
    , m_page(QFileInfo(page).canonicalFilePath())
    , m_folder(QFileInfo(page).absoluteDir().canonicalPath()) {
    if (!m_folder.endsWith(u'/')) {
        m_folder += u'/';
    }
}

bool LocalRequests::allows(const QUrl& url) const {
    if (url.scheme() == u"data"_s) {
        return true;
    }
    if (!url.isLocalFile() || !url.host().isEmpty()) {
        return false;
    }
    const QFileInfo file(url.toLocalFile());
    const QString path = file.canonicalFilePath(); // empty when there is none
    return path == m_page || (path.startsWith(m_folder) && file.isFile());
}

void LocalRequests::interceptRequest(QWebEngineUrlRequestInfo& info) {
    info.block(!allows(info.requestUrl()));
}

} // namespace quor::render
