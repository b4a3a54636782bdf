#pragma once

namespace stoikal {

/// A system may limit how large a file of an account grows, and ends the program that
/// writes beyond it. After this call such a write fails instead, as on a full disk, and
/// is reported like that one. Programs that are started later inherit it.
void TreatFileSizeLimitAsFullDisk();

} // namespace stoikal
