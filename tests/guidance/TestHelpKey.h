#pragma once

#include <QObject>

namespace quor::test {

class TestHelpKey : public QObject {
    Q_OBJECT

  private slots:
    void pressesTheHelpButtonOfTheActiveWindow();
    void childOfTheFrameComesFirst();
    void opensTheWholeHelpWithoutAButton();
    void leavesOtherKeysAlone();
};

} // namespace quor::test
