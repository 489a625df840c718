#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestPictures : public Test {
    Q_OBJECT

  private slots:
    void everyToolHasAPicture();
    void unknownKeysHaveNone();
    void picturesFollowThePalette();
    void disabledPicturesAreFaded();
    void pixelsAreThoseOfTheDrawings_data();
    void pixelsAreThoseOfTheDrawings();
    void picturesOfNoSizeAreEmpty();
    void theSheetIsWhiteAndSharp();
};

} // namespace quor::test
