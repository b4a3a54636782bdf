#pragma once

namespace stoikal {

/// Memory that runs out once: from its making on this program is given so many more
/// pieces, whether C++ or the toolkit asks for them, then none once, then as many as it
/// wants again. One at a time.
class ScarceMemory
{
public:
    explicit ScarceMemory(int pieces);
    ~ScarceMemory();
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;

    /// Whether a piece has been refused.
    static bool HasRefused();
};

} // namespace stoikal
