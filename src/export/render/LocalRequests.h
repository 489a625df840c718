#pragma once

#include <QString>
#include <QUrl>
#include <QWebEngineUrlRequestInterceptor>

namespace quor::render {

/// Lets a page reach itself, files of its own folder and what it holds in itself ("data:"), and
/// nothing else: no network, and no file elsewhere, not through a link in the folder either.
class LocalRequests : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT

  public:
    /// @param page path of the page, which exists
    explicit LocalRequests(const QString& page, QObject* parent = nullptr);

    [[nodiscard]] bool allows(const QUrl& url) const;

    void interceptRequest(QWebEngineUrlRequestInfo& info) override;

  private:
    QString m_page;   ///< canonical
    QString m_folder; ///< canonical, with a slash at its end
};

} // namespace quor::render
