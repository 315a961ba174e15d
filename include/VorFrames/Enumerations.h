/// \file
/// The enumerations of the interface. Their numbers reach the stored form and the host, so they are fixed;
/// numbers outside the listed ones can be read from a document and are kept.
#pragma once

/// How a reevaluation treats what it computes.
enum eFrameReevaluate : int {
    Reevaluate_Store = 0, ///< stores the new values; the geometry stays (a spec or chart stores nothing)
    Reevaluate_Apply = 1, ///< moves the geometry where values differ; a spec or chart stores
    Reevaluate_Ask = 2,   ///< only tells whether anything would change
};

/// What is tried before the user is asked about locked pieces.
enum eAccordingToReevaluate : int {
    AccordingTo_AskAlways = 0,       ///< nothing: ask
    AccordingTo_Element = 1,         ///< reevaluate of the element
    AccordingTo_Under = 2,           ///< reevaluateUnder of the element with the second element
    AccordingTo_NeverAsk = 3,        ///< nothing: do not ask
    AccordingTo_FramesSameLevel = 4, ///< adjustFramesSameLevel of the element
    AccordingTo_AllSets = 5,         ///< all sets of the element's manager
};

/// Which sizes a change of values moves.
enum eModifyLevelActionType : int {
    ModifyLevel_Nothing = 0,      ///< no change of the geometry
    ModifyLevel_Nest = 1,         ///< the nest alone
    ModifyLevel_ShiftedSizes = 2, ///< all sizes, after the list was shifted by the difference at the nest
    ModifyLevel_AllSizes = 3,     ///< all sizes, each with the value given
};

/// The kind of a formula node.
enum ElemContent : int {
    ElemNone = 0,        ///< an empty node, or a name without a kind
    ElemValue = 1,       ///< a constant
    ElemMeasure = 2,     ///< the measure of an element
    ElemLevel = 3,       ///< the level of an element
    ElemParenthesis = 4, ///< brackets round the left son
    ElemAdd = 5,         ///< left son + right son
    ElemSubtract = 6,    ///< left son - right son
    ElemMultiply = 7,    ///< left son * right son
    ElemDivide = 8,      ///< left son / right son; 0.0 for a divisor of at most 1e-05 in size
};

/// All that the library, the JSON values and the reference host export, four enumerations of the global
/// namespace apart.
namespace VorSystem
{

/// The class of an element.
enum eElementFrameType : int {
    Element_Center = 1,           ///< FrameCenter
    Element_Segment = 2,          ///< FrameSegment
    Element_Link = 3,             ///< FrameLink
    Element_Frame = 4,            ///< FrameFrame
    Element_Set = 5,              ///< FrameSet
    Element_Spec = 6,             ///< FrameSpec
    Element_MeasurementChart = 7, ///< FrameMeasurementChart
};

/// Which value list of an element is meant.
enum eEvaluationType : int {
    Evaluation_Measure = 1, ///< BaseFrame::getMeasureBySizes()
    Evaluation_Level = 2,   ///< BaseFrame::getLevelBySizes()
};

/// The outcome of a move of the contour.
enum eMsgConvergence : int {
    Msg_NothingDone = 0,  ///< the control object moves nothing
    Msg_Converged = 1,    ///< read-back agrees; the only success
    Msg_Moved = 2,        ///< inside the loops: the move went well, the loop goes on
    Msg_NotConverged = 3, ///< passes used up; the contour stays where it is
    Msg_MoveFailed = 4,   ///< a side could not give its share
    Msg_Diverged = 5,     ///< the gap grew from pass to pass
    Msg_Impossible = 6,   ///< a length would become negative
};

/// What a formula node stands for: a plain number or a length in centimetres.
enum eImplicitUnite : int {
    ImplicitNumber = 0,  ///< no unit, also the ratio of two lengths
    ImplicitLength = 1,  ///< centimetres
    ImplicitInvalid = 2, ///< inconsistent; only a verdict, never stored in a node
};

} // namespace VorSystem
