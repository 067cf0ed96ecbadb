#pragma once

#include "Platform/Ports/SharedFactSource.h"

#include <algorithm>
#include <functional>

namespace tomcatto {

/// One fact out of several sources: yes as soon as one says so, no where one does and none says yes, untold where all
/// are. Main thread only.
class AnyFactSource final : public SharedFactSource
{
public:
    /// @param sources outlive this
    explicit AnyFactSource(std::vector<std::reference_wrapper<FactSource>> sources)
        : m_sources(std::move(sources))
    {
    }

private:
    void begin() override
    {
        m_facts.assign(m_sources.size(), Fact::unknown);
        for (std::size_t each = 0; each < m_sources.size(); ++each)
            m_watches.push_back(m_sources[each].get().watch([this, each](Fact fact) {
                m_facts[each] = fact;
                tell(combined());
            }));
    }
    void end() override { m_watches.clear(); }

    [[nodiscard]] Fact combined() const
    {
        for (const Fact strongest : {Fact::yes, Fact::no, Fact::unknown}) {
            if (std::ranges::find(m_facts, strongest) != m_facts.end())
                return strongest;
        }
        return Fact::untold;
    }

    const std::vector<std::reference_wrapper<FactSource>> m_sources;
    std::vector<Fact> m_facts;
    std::vector<Cancellable> m_watches;
};

}
