#pragma once

#include "base/twips.h"

#include <QString>
#include <cstdint>

namespace stoikal {

/// The one program-wide record. It belongs to the main window, lives as long
/// as the process, and is passed by reference to whom it concerns. It stands
/// on the ground floor because every subsystem reads some of it.
struct SessionState {
    QString NomEleve; ///< empty: nobody is identified
    QString PrenomEleve;
    QString ClasseEleve;

    QString CheminFichier; ///< full path of the open equation file, empty when none
    QString TitreFichier; ///< its name with the extension
    QString FichierResultat; ///< the results journal of this run of the program

    bool ModeReseau = false; ///< the program runs from a network folder
    int ActionMotPasse = 0; ///< 1 to 10: the protected action that waits for the password

    Twips HauteurUtile = 0; ///< height of the work area less 750
    Twips LargeurUtile = 0; ///< width of the work area less 50

    QString IniUtilisateur; ///< the settings file of this user
    QString DossierDonnees; ///< common application data, with its separator
    QString DossierDocuments; ///< common documents, with its separator; empty in network mode
    QString DossierDepot; ///< bare name of the deposit folder in network mode
    QString DossierResultats; ///< where the equation files, journal and high scores live

    std::int16_t NumEquation = 0; ///< from 1; 0 before the first and after a run
    QString LigneEquation; ///< the line of the file being worked
    int NumeroLigne = 0; ///< its number in the file, from 1

    bool FichierAvancement = false; ///< some line of the open file has text behind "#"
    bool SerieExercices = false; ///< on a progress file: the series rather than free simulation
    bool ChargesPresentes = false; ///< the current equation has a charged species

    std::int32_t ChargeTotalReactants = 0;
    std::int32_t ChargeTotalProducts = 0;

    double ElapsedSeconds = 0; ///< what the stopwatch shows
    double BankedSeconds = 0; ///< seconds of a run before its last restart

    /// A balancing run, or a series on a progress file; free simulation is not scored.
    bool IsScored() const { return SerieExercices || !FichierAvancement; }
};

} // namespace stoikal
