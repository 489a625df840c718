#include "views/graph/FGrphMed.h"

using namespace Qt::StringLiterals;

namespace quor {

FGrphMed::FGrphMed(Program& program, Frame& frame, QWidget* parent)
    : GraphWindow(program, frame, std::make_unique<SystemGraph>(program),
                  {.whose = u"medio dei bioritmi del sistema"_s,
                   .about = u"--> Ogni valore è la media dei valori di tutti i bioritmi del "
                            "sistema."_s},
                  parent) {
    setObjectName(u"FGrphMed"_s);
    setWindowTitle(u"Grafico di sistema"_s);
}

} // namespace quor
