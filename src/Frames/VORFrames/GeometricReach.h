// The vectors that a formula of an element would move.
#pragma once

#include <vector>

namespace VorSystem
{

class CDbPointVOR;
class ControlFrame;
class ControlSegment;
class FrameFrame;

/// The contour vectors between the neighbours of the frame, side by side. The frame has a center, its control
/// object a skeleton.
std::vector<CDbPointVOR *> reachOfFrame(const FrameFrame &frame, const ControlFrame &control);

/// The vectors of the segment's gabarit and the group's own vectors that take part of its displacement. The
/// control object has a skeleton with group and gabarit.
std::vector<CDbPointVOR *> reachOfSegment(const ControlSegment &control);

} // namespace VorSystem
