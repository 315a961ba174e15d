// Darts follow the tips that a move has carried away.
#pragma once

namespace VorSystem
{

class CDbGroupObject;
class GabaritObject;

/// Moves the pivot and the curved legs of each dart of the gabarit as its tip has moved since the dart made
/// its copies, then refits the curves of the group.
void followDartTips(CDbGroupObject *group, GabaritObject *gabarit);

} // namespace VorSystem
