#pragma once

#include "guidance/LateHelp.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QTemporaryDir>

#include <memory>
#include <vector>

class QWidget;

namespace quor {

class HelpCollection;
class HelpWindow;

/// Shows the help.
class HelpService : public QObject, public HelpOpener {
    Q_OBJECT

  public:
    HelpService() = default;
    /// Closes the help.
    ~HelpService() override;
    HelpService(const HelpService&) = delete;
    HelpService& operator=(const HelpService&) = delete;
    HelpService(HelpService&&) = delete;
    HelpService& operator=(HelpService&&) = delete;

    void openHelp(QWidget* window, const QString& helpPath) override;

    /// The open window of the help, or null.
    [[nodiscard]] HelpWindow* window() const;

  private:
    [[nodiscard]] HelpWindow* makeWindow(std::unique_ptr<HelpCollection> collection);
    void dropClosedCollections();
    void awaitSearches();

    QPointer<HelpWindow> m_window;
    QString m_collectionFile; ///< what the viewer shows
    /// The one of the window, and closed ones in which a search has not ended.
    std::vector<std::shared_ptr<HelpCollection>> m_collections;
    /// For the copies that are read. Made with the first.
    std::unique_ptr<QTemporaryDir> m_copies;
};

} // namespace quor
