#include "simulator/component/fpr_version.h"

#include "simulator/object_requests.h"

namespace orlo::simulator
{

bool FPrVersion::Receive(std::int16_t& terminal, std::int16_t& priority)
{
    if (!transfer_.Ask(terminal, priority, {request::kVersion}, 1)) return false;
    last_build_ = transfer_.Data().front();
    return true;
}

}  // namespace orlo::simulator
