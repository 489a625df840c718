#include "guidance/HelpService.h"

#include "guidance/HelpAddress.h"
#include "guidance/HelpCollection.h"
#include "guidance/HelpWindow.h"
#include "toolkit/Messages.h"
#include "toolkit/TemporaryFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QString>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace quor {

HelpService::~HelpService() {
    delete m_window;
    awaitSearches();
}

void HelpService::openHelp(QWidget* window, const QString& helpPath) {
    const HelpAddress address = parseHelpPath(helpPath);
    const QString file = findHelpCollection(address.folder);
    if (file.isEmpty()) {
        showError(window,
                  u"I file della guida non sono stati trovati.\n"
                  "Per leggere la guida occorre installare di nuovo Quor."_s,
                  u"Errore"_s);
        return;
    }
    if (m_window == nullptr || m_collectionFile != file) {
        if (m_copies == nullptr || !QDir(m_copies->path()).exists()) {
            m_copies = makeTemporaryFolder();
        }
        auto collection = std::make_unique<HelpCollection>(
            file, m_copies != nullptr ? m_copies->path() : QString());
        if (!collection->isReadable()) {
            showError(window,
                      collection->lacksPlace()
                          ? u"La guida non si può copiare nella cartella temporanea."_s
                          : u"I file della guida sono danneggiati o non si possono leggere.\n"
                            "Per leggere la guida occorre installare di nuovo Quor."_s,
                      u"Errore"_s);
            return;
        }
        delete m_window;
        m_window = makeWindow(std::move(collection));
        m_collectionFile = file;
    }
    m_window->showPage(address.page);
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

HelpWindow* HelpService::makeWindow(std::unique_ptr<HelpCollection> collection) {
    const std::shared_ptr<HelpCollection>& kept = m_collections.emplace_back(std::move(collection));
    auto* window = new HelpWindow(kept);
    connect(window, &QObject::destroyed, this, &HelpService::dropClosedCollections);
    // Not from within its own signal.
    connect(kept.get(), &HelpCollection::searchEnded, this, &HelpService::dropClosedCollections,
            Qt::QueuedConnection);
    return window;
}

void HelpService::dropClosedCollections() {
    std::erase_if(m_collections, [](const std::shared_ptr<HelpCollection>& collection) {
        return collection.use_count() == 1 && !collection->isSearching();
    });
}

/// Only what was asked for just before the program's end; searches are short.
void HelpService::awaitSearches() {
    constexpr std::chrono::seconds longest(5);
    QTimer bound;
    bound.setSingleShot(true);
    bound.start(longest);
    while (bound.isActive() &&
           std::ranges::any_of(m_collections, [](const auto& c) { return c->isSearching(); })) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                        QEventLoop::WaitForMoreEvents);
    }
}

HelpWindow* HelpService::window() const {
    return m_window;
}

} // namespace quor
