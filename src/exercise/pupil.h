#pragma once

#include <QString>

namespace stoikal {

/// Who works at the program.
struct Pupil {
    QString NomEleve; ///< empty: nobody is identified
    QString PrenomEleve;
    QString ClasseEleve;

    bool IsIdentified() const { return !NomEleve.isEmpty(); }
};

} // namespace stoikal
