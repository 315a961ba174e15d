// Two managers as they stood before a transfer, and what became of them.
#pragma once

#include <QHash>
#include <QString>

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
    /// A set, and its elements as they were.
    struct Set {
        FrameSet *set;
        QString name;
        std::vector<Element> elements;
    };

    static std::vector<Element> elementsOf(const FrameSet &set);
    static std::vector<Set> setsOf(const GestFrames &manager);
    void compare(const Element &before, BaseFrame *after, TransferReceipt &receipt) const;

    const GestFrames &mTarget;
    // In the order of their managers, which is that of the receipt.
    std::vector<Set> mSource;
    std::vector<Set> mReceivers;
};

} // namespace VorSystem
