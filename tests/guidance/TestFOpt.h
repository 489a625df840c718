#pragma once

#include <QObject>

namespace quor::test {

class TestFOpt : public QObject {
    Q_OBJECT

  private slots:
    void opensTheTwoDialogs();
    void closes();
};

} // namespace quor::test
