// The elements that the names in a formula mean, for the length of one call.
#pragma once

#include <memory>

class QString;

namespace VorSystem
{

class BaseFrame;
class FrameSet;
class NameIndex;

/// Answers what FrameSet::foundElementAccordingName would: a few questions by asking the set, many through an
/// index of its names. No element may be renamed, added or taken away while an object of this class lives.
class ElementNames
{
public:
    explicit ElementNames(const FrameSet *set);
    ~ElementNames();

    ElementNames(const ElementNames &) = delete;
    ElementNames &operator=(const ElementNames &) = delete;

    /// False when there is nothing to ask, and then found must not be called.
    bool haveSet() const { return mSet != nullptr || mIndex != nullptr; }
    BaseFrame *found(const QString &name, bool searchFrames);

private:
    static bool isLarge(const FrameSet &set);

    const FrameSet *mSet = nullptr;
    const NameIndex *mIndex = nullptr;
    std::unique_ptr<NameIndex> mOwnIndex;
    int mSearches = 0;
};

} // namespace VorSystem
