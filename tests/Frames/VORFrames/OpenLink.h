// A link whose protected operations a test may call.
#pragma once

#include <VorFrames/VorFrames.h>

namespace VorSystem
{

class OpenLink : public FrameLink
{
public:
    using FrameLink::aFramesWithFormulaInconsistentLevel;
    using FrameLink::aFramesWithFormulaInconsistentMeasure;
    using FrameLink::applyLevelsDirectly;
    using FrameLink::applyMeasuresDirectly;
    using FrameLink::FrameLink;
    using FrameLink::leaveLevels;
    using FrameLink::leaveMeasures;
    using FrameLink::leaveMeasuresAndLevels;
    using FrameLink::testLevelsProposed;
};

} // namespace VorSystem
