#include "guidance/HelpService.h"

#include "guidance/HelpAddress.h"
#include "guidance/HelpCollection.h"
#include "guidance/HelpWindow.h"
#include "toolkit/Messages.h"

#include <QDir>
#include <QString>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor {

HelpService::~HelpService() {
    delete m_window;
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
            m_copies = std::make_unique<QTemporaryDir>();
        }
        auto collection = std::make_unique<HelpCollection>(file, m_copies->path());
        if (!collection->isReadable()) {
            showError(window,
                      u"I file della guida sono danneggiati o non si possono leggere.\n"
                      "Per leggere la guida occorre installare di nuovo Quor."_s,
                      u"Errore"_s);
            return;
        }
        delete m_window;
        m_window = new HelpWindow(std::move(collection));
        m_collectionFile = file;
    }
    m_window->showPage(address.page);
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

HelpWindow* HelpService::window() const {
    return m_window;
}

} // namespace quor
