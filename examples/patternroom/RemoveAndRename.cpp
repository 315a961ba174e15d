// Taking elements out, giving them other names, and locking pieces.
#include "Commands.h"

#include <VorConjoin/VorConjoin.h>

namespace room
{

using namespace VorSystem;

namespace
{

void removeSet(const PatternDocument &document, const ElementOptions &options)
{
    FrameSet *set = findSet(document, options.element);
    if (!set->canBeDestroyed(true))
        throw Refusal(QStringLiteral("The set '%1' stays.").arg(set->name()));
    delete set;
}

// Takes the body of an element off its piece, as the delete key would.
void untie(const Element &element)
{
    const auto refuse = [&](const QString &why) {
        throw Refusal(QStringLiteral("'%1' stays tied: %2.").arg(element.path(), why));
    };
    if (auto *link = dynamic_cast<FrameLink *>(element.element)) {
        link->transformerLinkUndefined();
        return;
    }
    ControlBase *body = element.element->objectControlCorresponding();
    if (!body)
        return;
    if (auto *segment = dynamic_cast<FrameSegment *>(element.element)) {
        segment->removeControlSegmentCorrespondent();
        return;
    }
    ControlSkeleton *skeleton = body->getSkeleton();
    skeleton->adjustSelection(false);
    body->setSelected(true);
    if (element.place.kind == Element_Frame && !skeleton->backSpaceFrames())
        refuse(QStringLiteral("it is the origin of the other frames"));
    if (element.place.kind == Element_Center && !skeleton->backSpaceCenter())
        refuse(QStringLiteral("frames stand on it"));
}

void removeElement(PatternDocument &document, const ElementOptions &options)
{
    const Element element = findElement(document, options.element, options.kind);
    const CDbGroupObject *piece = element.element->groupCorrespondent();
    GabaritObject *outline = piece ? element.element->gabaritCorrespondent() : nullptr;

    // A link is asked for its frames, a frame for its link: of the rest the library sees to itself.
    if (element.element->isMentionedInTheSetFormula(element.set, true))
        throw Refusal(QStringLiteral("'%1' stays.").arg(element.path()));
    untie(element);
    const bool isComputed =
        element.place.kind == Element_Spec || element.place.kind == Element_MeasurementChart;
    if (!isComputed && !element.element->canBeDestroyed(true))
        throw Refusal(QStringLiteral("'%1' stays.").arg(element.path()));
    delete element.element;
    if (outline && outline->controlSkeleton() && outline->controlSkeleton()->isEmptySkeleton())
        document.removeSkeleton(outline->controlSkeleton());
}

BaseFrame *bearerOf(const Element &element, const QString &name)
{
    switch (element.place.kind) {
    case Element_Center: return element.set->findFrameCenterAccordingName(name);
    case Element_Segment: return element.set->findFrameSegmentAccordingName(name);
    case Element_Link: return element.set->findFrameLinkAccordingName(name);
    case Element_Frame: {
        FrameCenter *center = static_cast<FrameFrame *>(element.element)->getFrameCenter();
        return center ? center->foundFrameAccordingName(name) : nullptr;
    }
    case Element_Spec: return element.set->findFrameSpecAccordingName(name);
    case Element_MeasurementChart: return element.set->findFrameMeasurementChartAccordingName(name);
    case Element_Set: break;
    }
    return nullptr;
}

// Elements that a formula can name and that formulas do name.
std::vector<BaseFrame *> namedByFormulas(FrameSet *set, const PatternDocument &document)
{
    std::vector<BaseFrame *> named;
    for (const Element &element : elementsOf(document)) {
        BaseFrame *holder = nullptr;
        if (element.set == set && set->elementsMentionedInFormulaOne(element.element, holder) &&
            set->foundElementAccordingName(element.fullName(), false) == element.element)
            named.push_back(element.element);
    }
    return named;
}

} // namespace

int remove(const ElementOptions &options)
{
    requireTarget(options);
    const DocumentPtr document = openDocument(options.document);
    if (options.kind == QLatin1String("set"))
        removeSet(*document, options);
    else
        removeElement(*document, options);
    store(options, *document);
    options.console->print(QStringLiteral("Removed '%1'\n").arg(options.element));
    return Exit_Done;
}

int rename(const RenameOptions &options)
{
    requireTarget(options);
    const DocumentPtr document = openDocument(options.document);
    const QString name = options.newName.trimmed();
    requireName(name, options.kind == QLatin1String("set"));

    QString before;
    if (options.kind == QLatin1String("set")) {
        FrameSet *set = findSet(*document, options.element);
        FrameSet *bearer = document->framesManager()->getFrameSetAccordingName(name);
        if (bearer && bearer != set)
            throw Refusal(QStringLiteral("There is a set '%1' already.").arg(bearer->name()));
        before = set->name();
        set->setName(name);
    } else {
        const Element element = findElement(*document, options.element, options.kind);
        BaseFrame *bearer = bearerOf(element, name);
        if (bearer && bearer != element.element)
            throw Refusal(QStringLiteral("There is a %1 '%2' already.")
                              .arg(kindName(element.place.kind), bearer->fullName()));
        // Formulas follow the element, but are read again by name: it must still mean the same.
        const std::vector<BaseFrame *> named = namedByFormulas(element.set, *document);
        before = element.fullName();
        element.element->setName(name);
        for (BaseFrame *mentioned : named) {
            BaseFrame *found = element.set->foundElementAccordingName(mentioned->fullName(), false);
            if (found != mentioned) {
                throw Refusal(
                    QStringLiteral("A formula names '%1', and would mean the %2 of that name instead.")
                        .arg(mentioned->fullName(), found ? kindName(found->elementType()) : QString()));
            }
        }
    }
    store(options, *document);
    options.console->print(QStringLiteral("Renamed '%1' to '%2'\n").arg(before, name));
    return Exit_Done;
}

int lock(const LockOptions &options)
{
    requireTarget(options);
    const DocumentPtr document = openDocument(options.document);
    CDbGroupObject *piece = findPiece(*document, options.piece);
    piece->setLocked(options.isLocked);
    store(options, *document);
    options.console->print(
        QStringLiteral("%1 '%2'\n")
            .arg(options.isLocked ? QStringLiteral("Locked") : QStringLiteral("Unlocked"), piece->name()));
    return Exit_Done;
}

} // namespace room
