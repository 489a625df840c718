#include "guidance/LateHelp.h"

#include "toolkit/LateModule.h"
#include "toolkit/Messages.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr LateModule helpModule{
    .file = "quor-help.so", .function = "quorHelp", .task = u"mostra la guida"};

} // namespace

void LateHelp::openHelp(QWidget* window, const QString& helpPath) {
    if (m_help == nullptr) {
        QString fault;
        const auto function =
            reinterpret_cast<const HelpModule* (*)()>(loadModule(helpModule, fault));
        const HelpModule* found = function != nullptr ? function() : nullptr;
        if (found == nullptr || !isOfThisVersion(helpModule, found->version, fault)) {
            showError(window, fault, u"Errore"_s);
            return;
        }
        m_help = found->make();
    }
    m_help->openHelp(window, helpPath);
}

} // namespace quor
