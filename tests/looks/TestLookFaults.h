#pragma once

#include "support/Hermetic.h"

namespace quor::test {

/// The search for faults finds those that are there, so that finding none means something.
class TestLookFaults : public Test {
    Q_OBJECT

  private slots:
    void init();
    void cleanup();
    void contrasts();
    void aGoodWindowHasNone();
    void squeezedControls();
    void wrappedLabels();
    void entriesAndLists();
    void trees();
    void textsInPictures();
    void overlaps();
    void sizes();
    void paleTexts();
    void darkPicturesOnDarkGround();
};

} // namespace quor::test
