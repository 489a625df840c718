#include "toolkit/CalculationDate.h"

#include "core/DateEntry.h"
#include "toolkit/Messages.h"

using namespace Qt::StringLiterals;

namespace quor {

std::optional<DateValue> askCalculationDate(QWidget* parent, const QString& prompt) {
    const auto date = acceptCalculationDate(askText(parent, prompt, u"Inserimento"_s));
    if (!date) {
        showError(parent, u"La data inserita non è valida. Nessuna operazione eseguita."_s,
                  u"Errore"_s);
    }
    return date;
}

void showCalculationDate(Frame& frame, DateValue date) {
    frame.setStatusPanel(StatusPanel::calculation,
                         u"Data in esame per il calcolo: "_s + shortDate(date));
}

} // namespace quor
