#include "views/graph/FGrph.h"

using namespace Qt::StringLiterals;

namespace quor {

FGrph::FGrph(Program& program, Frame& frame, QWidget* parent)
    : GraphWindow(program, frame, std::make_unique<PersonGraph>(program.biorhythm),
                  {.whose = u"della persona in esame"_s, .about = {}}, parent) {
    setObjectName(u"FGrph"_s);
}

} // namespace quor
