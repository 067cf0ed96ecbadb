#pragma once

#include "Platform/Ports/AnyFactSource.h"

#include <map>

namespace tomcatto {

/// Tells of rest by several sources, each for one length of it. Main thread only.
class RestSources final : public IdleSource
{
public:
    /// Makes the source that is yes once keys and pointer have rested for so long.
    using Maker = std::function<std::unique_ptr<FactSource>(std::chrono::seconds rest)>;

    explicit RestSources(std::vector<Maker> makers)
        : m_makers(std::move(makers))
    {
    }

    [[nodiscard]] Cancellable watch(std::chrono::seconds rest, FactSource::Handler handler) override
    {
        return m_rests.try_emplace(rest, m_makers, rest).first->second.any->watch(std::move(handler));
    }

private:
    /// Kept once made, because those who watch hold on to it; the lengths are few.
    struct OneRest
    {
        OneRest(const std::vector<Maker> &makers, std::chrono::seconds rest)
        {
            std::vector<std::reference_wrapper<FactSource>> references;
            references.reserve(makers.size());
            for (const Maker &make : makers)
                references.emplace_back(*sources.emplace_back(make(rest)));
            any = std::make_unique<AnyFactSource>(std::move(references));
        }

        std::vector<std::unique_ptr<FactSource>> sources;
        std::unique_ptr<AnyFactSource> any;
    };

    std::vector<Maker> m_makers;
    std::map<std::chrono::seconds, OneRest> m_rests;
};

}
