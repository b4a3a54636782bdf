#pragma once

#include <QString>
#include <cstdint>

namespace stoikal {

/// What is done with an equation file.
enum class RunKind {
    Balancing, ///< a file without data: coefficients are asked for
    Series, ///< a file with data as a series of exercises
    FreeSimulation ///< a file with data to play with; not scored
};

/// A run as everybody may read it. Only the run itself writes it.
struct RunState {
    QString CheminFichier; ///< full path of the chosen equation file, empty when none
    QString TitreFichier; ///< its name with the extension
    RunKind kind = RunKind::Balancing;

    std::int16_t NumEquation = 0; ///< from 1; 0 before the first and after a run
    QString LigneEquation; ///< the line of the file being worked
    int NumeroLigne = 0; ///< its number in the file, from 1

    bool ChargesPresentes = false; ///< the current equation has a charged species
    std::int32_t ChargeTotalReactants = 0;
    std::int32_t ChargeTotalProducts = 0;

    std::int32_t Score = 0; ///< points held by the pupil, never below 0
    std::int32_t MaxScore = 0; ///< points that could have been won on the equations read so far
    bool AnswerOpen = true; ///< false once the solution was shown to the pupil
    bool BadKey = false; ///< the last key in a box was refused

    /// Some line of the open file has text behind "#".
    bool FichierAvancement() const { return kind != RunKind::Balancing; }
    bool SerieExercices() const { return kind == RunKind::Series; }
    /// Free simulation is not scored.
    bool IsScored() const { return kind != RunKind::FreeSimulation; }
};

} // namespace stoikal
