#pragma once

#include <QObject>

namespace quor::test {

class TestWeekPlot : public QObject {
    Q_OBJECT

  private slots:
    void geometry_data();
    void geometry();
    void mapping();
    void labelStandsInTheMiddle_data();
    void labelStandsInTheMiddle();
    void textsFitTheirLine_data();
    void textsFitTheirLine();
};

} // namespace quor::test
