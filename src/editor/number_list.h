#pragma once

#include <QString>
#include <vector>

namespace stoikal {

/// Numbers of equations for a person: "2, 3, 7", and of many the first five: "1, 2, 3, 4, 5, …".
QString NumberList(const std::vector<int>& numbers);

} // namespace stoikal
