// Frame sets of a given number of values, in the shapes that documents have.
#pragma once

#include <VorFrames/VorFrames.h>

#include <memory>
#include <string>
#include <vector>

namespace shapes
{

/// A document that holds one set; without pieces but for the shape of that name.
class LargeSet
{
public:
    /// shape is one of
    ///   wide       values that hang on nothing, frames and segments
    ///   chain      segments, each the sum of the one before and a constant
    ///   random     frames and segments whose formulas name one to three elements further back
    ///   followers  frames that follow the formula of one link
    ///   links      links of ten frames each, which a frame reads
    ///   pieces     rectangles with four frames, every other with a formula, and four segments each
    /// Ends the program for another.
    LargeSet(const std::string &shape, int values);
    LargeSet(const LargeSet &) = delete;
    LargeSet &operator=(const LargeSet &) = delete;
    ~LargeSet();

    VorSystem::FrameSet *set() const { return mSet; }
    /// Ten sizes; every list of the set is filled.
    void fillSizes();

private:
    class Bare;

    VorSystem::FrameFrame *addFrame();
    VorSystem::FrameSegment *addSegment();
    void makeWide(int values);
    void makeChain(int values);
    void makeRandom(int values);
    void makeFollowers(int values);
    void makeLinks(int values);
    void makePieces(int values);
    VorSystem::ControlSkeleton *addPiece(double x);

    std::unique_ptr<Bare> mDocument;
    VorSystem::GestFrames mManager;
    VorSystem::FrameSet *mSet;
    VorSystem::FrameCenter *mCenter = nullptr;
    int mCount = 0;
    std::vector<std::unique_ptr<VorSystem::ControlSkeleton>> mSkeletons;
};

/// The sum of the measures of two elements (the second may be null: then a constant).
VorSystem::TreeEquations *sum(VorSystem::BaseFrame *first, VorSystem::BaseFrame *second);

} // namespace shapes
