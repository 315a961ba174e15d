// Sets in their stored form.
//
// A set is read twice over: first the elements, in the order in which they depend on each other, then the
// formulas, when every element that they can name exists.

#include "FormulaRecordsJson.h"
#include "VORFrames/NameIndex.h"

#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameMeasurementChart.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/FrameSpec.h>
#include <VorJson/VorJson.h>

#include <memory>
#include <type_traits>

namespace VorSystem
{

namespace
{

template<class Element>
XJsonArray elementsToJson(const QListEx<Element *> &elements)
{
    XJsonArray array;
    for (const Element *element : elements) {
        XJsonObject object = element->toJson();
        object.insert(QStringLiteral("name"), element->name());
        array.append(object);
    }
    return array;
}

template<class Element>
void appendFormulaRecords(XJsonArray &records, const QListEx<Element *> &elements)
{
    for (Element *element : elements)
        appendFormulaRecord(records, *element);
}

// Deletes an element that was not read to its end and that no list of the set holds.
struct DropUnread {
    void operator()(BaseFrame *element) const { delete element; }
    void operator()(FrameFrame *frame) const
    {
        // The center notices that a frame dies, the link does not.
        if (FrameLink *const link = frame->getLink())
            link->removeFrame(frame);
        delete frame;
    }
};

// Reads the elements of one kind. What the list held before is abandoned to its holders: reading is meant for
// a new set.
template<class Element>
void readElements(const XJsonValue &value, QListEx<Element *> &list, FrameSet &set, NameIndex &names)
{
    const XJsonArray items = value.toArray();
    list = QListEx<Element *>();
    list.reserve(items.size());
    names.reserve(items.size());
    for (const XJsonValue &item : items) {
        const XJsonObject object = item.toObject();
        const QString name = object.value(QStringLiteral("name")).toString();
        std::unique_ptr<Element, DropUnread> element(new Element(name));
        element->setOrGetFrameSet() = &set;
        element->fromJson(object);
        // A frame is told its set only while it is read; from now on it asks its center.
        if constexpr (std::is_same<Element, FrameFrame>::value)
            element->setOrGetFrameSet() = nullptr;
        list.append(element.get());
        names.add(element.release());
    }
}

} // namespace

XJsonObject FrameSet::toJson() const
{
    XJsonArray formulas;
    appendFormulaRecords(formulas, mFrameSegments);
    appendFormulaRecords(formulas, mFrameSpecs);
    appendFormulaRecords(formulas, mFrameMeasurementCharts);
    appendFormulaRecords(formulas, mFrameCenters);
    appendFormulaRecords(formulas, mFrameLinks);
    appendFormulaRecords(formulas, mFrames);

    XJsonObject object;
    object.insert(QStringLiteral("centers"), elementsToJson(mFrameCenters));
    object.insert(QStringLiteral("formulars"), formulas);
    object.insert(QStringLiteral("frames"), elementsToJson(mFrames));
    object.insert(QStringLiteral("links"), elementsToJson(mFrameLinks));
    object.insert(QStringLiteral("measurementCharts"), elementsToJson(mFrameMeasurementCharts));
    object.insert(QStringLiteral("segments"), elementsToJson(mFrameSegments));
    object.insert(QStringLiteral("set_name"), mName);
    object.insert(QStringLiteral("specs"), elementsToJson(mFrameSpecs));
    return object;
}

void FrameSet::fromJson(const XJsonObject &object)
{
    mName = object.value(QStringLiteral("set_name")).toString();

    // Each list may name what the ones before it brought. No host code runs that could change the set
    // meanwhile: elements that are just read are tied to no piece.
    NameIndex names;
    const NamesAtHand namesAtHand(*this, names);
    readElements(object.value(QStringLiteral("segments")), mFrameSegments, *this, names);
    readElements(object.value(QStringLiteral("specs")), mFrameSpecs, *this, names);
    readElements(object.value(QStringLiteral("measurementCharts")), mFrameMeasurementCharts, *this, names);
    readElements(object.value(QStringLiteral("centers")), mFrameCenters, *this, names);
    readElements(object.value(QStringLiteral("links")), mFrameLinks, *this, names);
    readElements(object.value(QStringLiteral("frames")), mFrames, *this, names);

    const XJsonArray records = object.value(QStringLiteral("formulars")).toArray();
    for (const XJsonValue &record : records)
        readFormulaRecord(record.toObject(), *this);
}

} // namespace VorSystem
