// Which elements are defined, asked of many elements within one call.
//
// Answers what isDefinedInDocument() would of each, from one walk over the document. Specs and charts hang on
// what their formulas name; one that hangs on itself counts as defined as far as the circle goes.
#pragma once

#include "VORFrames/ControlIndex.h"

namespace VorSystem
{

class FrameLink;

class Definedness
{
public:
    /// Raises AssertionError where a spec or chart names an unresolved element or holds a broken formula.
    bool isDefined(BaseFrame *element);
    /// As element->objectControlCorresponding().
    ControlBase *controlOf(BaseFrame *element) { return mControls.of(element); }
    ControlLookup &controls() { return mControls; }
    /// The library's own answer for a link, and for a spec or chart, of whatever class it is.
    bool linkIsDefined(const FrameLink &link);
    bool computedIsDefined(BaseFrame *element);

private:
    ControlLookup mControls;
    QHash<BaseFrame *, bool> mComputed; // specs and charts whose answer is known
};

} // namespace VorSystem
