#include "LiveEvolutionSource.h"

#include <linux/eventstore/evolution/ModuleEntry.h>

extern "C" Q_DECL_EXPORT vantrel::ComponentSource *
vantrelMakeEvolutionSource(std::function<void()> announce) {
    return std::make_unique<vantrel::LiveEvolutionSource>(std::move(announce)).release();
}

static_assert(std::is_same_v<decltype(vantrelMakeEvolutionSource), vantrel::MakeEvolutionSource>);
