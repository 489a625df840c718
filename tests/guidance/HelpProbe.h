#pragma once

#include "toolkit/ShowHelp.h"

#include <QStringList>

namespace quor::test {

/// Stands for the help while it lives and notes the pages that are asked for: "" for all of it.
class HelpProbe {
  public:
    HelpProbe() {
        setHelpViewer([this](QWidget* /*window*/, const QString& path) {
            pages << path.section(QStringLiteral("::/"), 1);
        });
    }
    ~HelpProbe() { setHelpViewer({}); }
    HelpProbe(const HelpProbe&) = delete;
    HelpProbe& operator=(const HelpProbe&) = delete;
    HelpProbe(HelpProbe&&) = delete;
    HelpProbe& operator=(HelpProbe&&) = delete;

    QStringList pages;
};

} // namespace quor::test
