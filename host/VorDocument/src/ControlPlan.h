// A plan that knows the skeletons of its pieces, and so the locked pieces that an element concerns.
#pragma once

#include <VorConjoin/t_Plan.h>

namespace VorSystem
{

class ControlPlan final : public t_Plan
{
public:
    int lockState(BaseFrame *element) const override;
};

} // namespace VorSystem
