#include "toolkit/PrintDialog.h"

namespace quor {

namespace {

PrintDialog& currentDialog() {
    static PrintDialog dialog = nullptr;
    return dialog;
}

} // namespace

void setSystemPrintDialog(PrintDialog dialog) {
    currentDialog() = dialog;
}

PrintDialog systemPrintDialog() {
    return currentDialog();
}

std::optional<PrintChoice> askHowToPrint(QWidget* parent, const PrintRequest& request) {
    return dialogHost().print(parent, request);
}

} // namespace quor
