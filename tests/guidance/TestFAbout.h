#pragma once

#include <QObject>

namespace quor::test {

class TestFAbout : public QObject {
    Q_OBJECT

  private slots:
    void showsNameVersionAndLicence();
    void contactsOpenTheirPage();
    void okCloses();
};

} // namespace quor::test
