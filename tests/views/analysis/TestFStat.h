#pragma once

#include <QObject>

namespace quor::test {

class TestFStat : public QObject {
    Q_OBJECT

  private slots:
    void knownPerson();
    void zeroCrossing();
    void boxesAreReadOnlyAndCopyable();
    void barsWearTheCurveColours();
    void staysAsItWasMade();
    void titleAndObjectName();
    void closes();
    void helpOpensItsTopic();
    void tabOrder();
    void labelsBelongToTheirBoxes();
    void fitsItsTexts();
};

} // namespace quor::test
