#pragma once

#include "balancing/balancing_engine.h"

#include <QString>

namespace stoikal {

/// The lines that the engine writes, to the blank. Each ends with a line break.
namespace result_text {

/// The equation with its coefficients: "¤) Equation n°1  : 2 H2 + O2 -----> 2 H2O".
QString Line(const BalancingTask& task, const std::array<double, 6>& coefficients);

QString WrongSymbol(const QString& formula, int position);
QString AtomMissing(const QString& symbol);
QString DifferentAtoms();
QString SymbolRefused(const QString& symbol);
QString Impossible(const BalancingTask& task);
QString PleaseWait();

/// The question about a symbol that no element has.
QString UnknownSymbolTitle();
QString UnknownSymbolQuestion(const QString& symbol, bool amongReactants);

} // namespace result_text

} // namespace stoikal
