// How a move of a frame ended, between its private operations.
#pragma once

namespace VorSystem
{

enum eFrameStatus : short {
    Status_Start = 0,
    Status_Reached = 1,   ///< the measure read back agrees
    Status_Close = 2,     ///< it is off by less than ControlBase::Epsilon_Changement
    Status_Failed = 4,    ///< it is farther off
    Status_LevelDone = 8, ///< a level cannot fail
};

} // namespace VorSystem
