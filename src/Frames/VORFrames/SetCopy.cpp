// Copying sets: a new set for every source, with all names as they are.

#include <VorFrames/FrameSet.h>
#include <VorFrames/GestFrames.h>

#include "Preconditions.h"
#include "VORFrames/Definedness.h"
#include "VORFrames/SetTransfer.h"

#include <VorFrames/FrameMeasurementChart.h>

namespace VorSystem
{

namespace
{

constexpr char kSourceUnit[] = R"(src\Frames\VORFrames)";

class SetCopy : public SetTransfer
{
public:
    using SetTransfer::SetTransfer;

private:
    FrameSet *destinationByName() const override { return nullptr; }
    QString nameInDestination(BaseFrame &element, FrameCenter *) override { return element.name(); }
    bool leavesOutCenter(const QString &name) const override { return mNames.center(name) != nullptr; }
    bool takesChart(FrameMeasurementChart &chart, Definedness &definedness) override
    {
        return definedness.isDefined(&chart);
    }
};

} // namespace

void FrameSet::copyElements(GestFrames *target, boost::function<bool(CDbGroupObject *)> selectGroup,
                            bool withValues, EquivalenceSets &equivalences)
{
    VOR_REQUIRE(target != nullptr);
    SetCopy(*this, *target, withValues, equivalences).run(selectGroup);
    // Nothing may follow: the set itself may be gone.
}

void GestFrames::CopyFrameSetsInManager(GestFrames *target,
                                        boost::function<bool(CDbGroupObject *)> selectGroup, bool withValues,
                                        EquivalenceSets &equivalences)
{
    VOR_REQUIRE(target != nullptr);
    const QListEx<FrameSet *> sources = mFrameSets; // as they stand: the target may be this manager
    for (FrameSet *source : sources) {
        if (mFrameSets.contains(source)) // it may have been deleted as a destination
            source->copyElements(target, selectGroup, withValues, equivalences);
    }
}

} // namespace VorSystem
