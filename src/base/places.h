#pragma once

#include "base/twips.h"

#include <QString>

namespace stoikal {

/// Where the program works: the room on the screen, the folders, the files of
/// this run of the program. Found once at the start, and read from then on.
struct Places {
    bool ModeReseau = false; ///< the program runs from a network folder

    Twips HauteurUtile = 0; ///< height of the work area less 750
    Twips LargeurUtile = 0; ///< width of the work area less 50

    QString IniUtilisateur; ///< the settings file of this user
    QString DossierDonnees; ///< common application data, with its separator
    QString DossierDocuments; ///< common documents, with its separator; empty in network mode
    QString DossierDepot; ///< bare name of the deposit folder in network mode
    QString DossierResultats; ///< where the equation files, journal and high scores live
    QString FichierResultat; ///< the results journal of this run of the program
};

} // namespace stoikal
