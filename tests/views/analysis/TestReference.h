#pragma once

#include <QObject>

namespace quor::test {

class TestReference : public QObject {
    Q_OBJECT

  private slots:
    void valuesAgree();
    void trendsAgree();
    void forecastsAgree();
};

} // namespace quor::test
