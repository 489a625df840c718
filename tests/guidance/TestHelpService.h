#pragma once

#include "support/Hermetic.h"

namespace quor::test {

class TestHelpService : public Test {
    Q_OBJECT

  private slots:
    void saysWhenTheModuleIsMissing();
    void addressesAreRead_data();
    void addressesAreRead();
    void collectionIsFoundBesideTheProgramOrInstalled();
    void opensOneWindowAtThePage();
    void closedWindowOpensAnew();
    void copiesComeBackToTheirPaths();
    void unknownPageSaysSo();
    void linksOutsideAreNotFollowed();
    void nobodyWritesIntoThePage();
    void contentsFollowThePage();
    void firstPageHasItsSheetAndPictures();
    void indexFindsATerm();
    void searchFindsInversione();
    void searchTakesAnyText();
    void closesWhileItSearches();
    void closesWhileItsListsAreFilled();
    void findsInThePage();
    void zoomGoesBackToNormal();
    void staysUsableBesideAModalDialog_data();
    void staysUsableBesideAModalDialog();
    void survivesTheDialogItWasOpenedFrom();
    void missingHelpIsSaid();
    void damagedHelpIsSaid_data();
    void damagedHelpIsSaid();
    void aFullTemporaryFolderIsSaid();
    void controlsHaveNames();
    void accessKeysAreTold();
};

} // namespace quor::test
