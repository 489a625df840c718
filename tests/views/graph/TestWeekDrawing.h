#pragma once

#include <QObject>

namespace quor::test {

class TestWeekDrawing : public QObject {
    Q_OBJECT

  private slots:
    void sameAsReference_data();
    void sameAsReference();
    void lowestValueHangsDownInTheStableColour();
    void meanHasTheSameLimits();
    void eachStateHasItsColour();
    void gridAndFrameCoverTheBars();
    void namesAreTheLocales();
};

} // namespace quor::test
