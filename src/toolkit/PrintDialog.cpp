#include "toolkit/PrintDialog.h"

namespace quor {

std::optional<PrintChoice> askHowToPrint(QWidget* parent, const PrintRequest& request) {
    return dialogHost().print(parent, request);
}

} // namespace quor
