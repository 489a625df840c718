#pragma once

#include <QObject>

namespace quor::test {

class TestFPrev : public QObject {
    Q_OBJECT

  private slots:
    void knownPerson();
    void signChangeBeforeTomorrow();
    void zeroTodayEndsTheSearchTomorrow();
    void maximumTodayIsNotReported();
    void maximumTomorrowIsOne();
    void beforeTheBirth();
    void boxesAreReadOnlyAndCopyable();
    void longestDateFits();
    void staysAsItWasMade();
    void titleAndObjectName();
    void labels();
    void closes();
    void helpOpensItsTopic();
    void tabOrder();
};

} // namespace quor::test
