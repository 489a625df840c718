#pragma once

#include "export/render/Arguments.h"
#include "export/render/LocalRequests.h"

#include <QObject>
#include <QString>
#include <QWebEnginePage>
#include <QWebEngineProfile>

namespace quor::render {

/// Follows no link and no redirection away from the page that it loads first.
class LoadedPage : public QWebEnginePage {
    Q_OBJECT

  public:
    explicit LoadedPage(QWebEngineProfile* profile);

  protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;

  private:
    bool m_navigated = false;
};

/// Loads the page once, prints it into the file once, and says how that ended.
class PagePrinter : public QObject {
    Q_OBJECT

  public:
    explicit PagePrinter(Arguments arguments);

    void start();

  signals:
    /// @param fault why it did not work; empty when it did
    void finished(quor::render::ExitCode code, const QString& fault);

  private:
    void print();
    void write(const QByteArray& pdf);

    Arguments m_arguments;
    QWebEngineProfile m_profile; ///< without a name: keeps nothing on the disk
    LocalRequests m_requests;
    LoadedPage m_page;
};

} // namespace quor::render
