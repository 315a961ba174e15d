// Two managers as they stood before a transfer, and what became of them.
#pragma once

#include <QHash>
#include <QString>

#include <map>
#include <vector>

namespace VorSystem
{

class BaseFrame;
class EquivalenceSets;
class FrameLink;
class FrameSet;
class GestFrames;
struct TransferReceipt;

class TransferRecord
{
public:
    TransferRecord(const GestFrames &source, const GestFrames &target);

    /// Adds what happened since. The source must bear the names that its elements have in the target.
    void fill(TransferReceipt &receipt, const EquivalenceSets &received) const;
    /// Renames the elements of the source as they were.
    void giveBackSourceNames() const;

private:
    struct Element {
        BaseFrame *element;
        QString name;
        QString fullName; ///< with the set
        QString formulas[3];
        const FrameLink *link; ///< of a frame
    };
    using Elements = std::vector<Element>;

    static Elements elementsOf(const FrameSet &set);
    static std::map<FrameSet *, Elements> elementsOf(const GestFrames &manager);
    void compare(const Element &before, BaseFrame *after, TransferReceipt &receipt) const;

    const GestFrames &mTarget;
    std::map<FrameSet *, Elements> mSource;
    std::map<FrameSet *, Elements> mReceivers;
    std::map<FrameSet *, QString> mReceiverNames;
};

} // namespace VorSystem
