#pragma once

#include "core/Biorhythm.h"

#include <QStringList>

namespace quor::test {

using namespace Qt::StringLiterals;

/// A program on 15 March 2004 whose members are born a day apart, from 25 December 1981 on.
inline Program programWith(const QStringList& names) {
    Program program;
    resetToStartUp(program);
    program.biorhythm.calculationDate = toDateValue(QDate(2004, 3, 15));
    DateValue birthDate = toDateValue(QDate(1981, 12, 25));
    for (const QString& name : names) {
        program.state.systemMembers.push_back({name, birthDate});
        birthDate += 1;
    }
    program.state.systemCount = static_cast<std::int16_t>(names.size());
    return program;
}

/// The names of the members that count, in the order of the list.
inline QStringList memberNames(const AppState& state) {
    QStringList names;
    for (std::size_t i = 0; i < static_cast<std::size_t>(state.systemCount); ++i) {
        names << state.systemMembers.at(i).name;
    }
    return names;
}

} // namespace quor::test
