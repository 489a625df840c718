#pragma once

#include <QObject>

namespace quor::test {

class TestWeekState : public QObject {
    Q_OBJECT

  private slots:
    void weekOfADate_data();
    void weekOfADate();
    void hoursDoNotMatter();
    void stateAtItsLimits_data();
    void stateAtItsLimits();
    void valuesOfTheWeekOfTheBirth();
    void valuesBeforeTheBirth();
    void labels();
};

} // namespace quor::test
