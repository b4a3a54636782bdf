#pragma once

#include "help/page_address.h"

#include <cstddef>
#include <vector>

namespace stoikal {

/// The path of a reader through the pages, forth and back. Going somewhere new
/// forgets what lay ahead.
class PageHistory
{
public:
    struct Stop {
        QString file; ///< full path of the help file
        PageAddress page;
        int scroll = 0; ///< how far down the page was left

        bool IsAt(const QString& otherFile, const PageAddress& other) const
        {
            return file == otherFile && page == other;
        }
    };

    bool CanGoBack() const { return m_index > 0; }
    bool CanGoForward() const { return m_index + 1 < m_stops.size(); }
    bool IsEmpty() const { return m_stops.empty(); }
    /// Must not be called while empty.
    const Stop& Current() const { return m_stops[m_index]; }

    /// Arrives at a page; the one where the reader stands already adds nothing.
    void Visit(const QString& file, const PageAddress& page)
    {
        if (!IsEmpty() && Current().IsAt(file, page))
            return;
        if (!IsEmpty())
            m_stops.resize(m_index + 1);
        m_stops.push_back({file, page, 0});
        if (m_stops.size() > kMaximumStops)
            m_stops.erase(m_stops.begin());
        m_index = m_stops.size() - 1;
    }

    /// Stores how far down the current page is, before it is left.
    void StoreScroll(int scroll)
    {
        if (!IsEmpty())
            m_stops[m_index].scroll = scroll;
    }

    /// Steps back or forward and gives where; must only be called when possible.
    const Stop& Back() { return m_stops[--m_index]; }
    const Stop& Forward() { return m_stops[++m_index]; }

private:
    static constexpr std::size_t kMaximumStops = 500;

    std::vector<Stop> m_stops;
    std::size_t m_index = 0;
};

} // namespace stoikal
