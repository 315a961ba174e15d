// Two managers as they stood before a transfer, and what became of them.

#include "TransferRecord.h"

#include <VorDocument/Transfer.h>
#include <VorFrames/VorFrames.h>

#include <QSet>

#include <algorithm>

namespace VorSystem
{

namespace
{

QString nameWithSet(BaseFrame &element, const FrameSet &set)
{
    return set.name() + QLatin1Char('/') + element.fullName();
}

const TreeEquations *formulaOf(BaseFrame &element, int which)
{
    switch (which) {
    case 0: return element.measurementFormula();
    case 1: return element.formulaLevel();
    default: return element.formulaSpec();
    }
}

QString textOf(const TreeEquations *formula)
{
    if (formula == nullptr || formula->root == nullptr)
        return QString();
    try {
        return formula->toString();
    } catch (const AssertionError &) {
        return QStringLiteral("(without text)"); // a broken formula is still one
    }
}

std::vector<BaseFrame *> allOf(const FrameSet &set)
{
    std::vector<BaseFrame *> all;
    const auto add = [&all](const auto &elements) {
        all.insert(all.end(), elements.begin(), elements.end());
    };
    add(set.getFrameCenters());
    add(set.getFrames());
    add(set.getFrameSegments());
    add(set.getFrameLinks());
    add(set.getFrameSpecs());
    add(set.getFrameMeasurementCharts());
    return all;
}

// What of a set is new, to be found once by kind and name.
class NewElements
{
public:
    template<class Known>
    NewElements(const FrameSet &set, const Known &isKnown)
    {
        for (BaseFrame *element : allOf(set)) {
            if (!isKnown(element))
                mElements[keyOf(*element)].append(element);
        }
    }
    BaseFrame *take(BaseFrame &original)
    {
        QList<BaseFrame *> &candidates = mElements[keyOf(original)];
        return candidates.isEmpty() ? nullptr : candidates.takeFirst();
    }

private:
    static QPair<int, QString> keyOf(BaseFrame &element)
    {
        return {int(element.elementType()), element.fullName()};
    }
    QHash<QPair<int, QString>, QList<BaseFrame *>> mElements;
};

} // namespace

TransferRecord::TransferRecord(const GestFrames &source, const GestFrames &target)
    : mTarget(target), mSource(setsOf(source)), mReceivers(setsOf(target))
{
}

std::vector<TransferRecord::Element> TransferRecord::elementsOf(const FrameSet &set)
{
    std::vector<Element> elements;
    for (BaseFrame *element : allOf(set)) {
        const auto *const frame = dynamic_cast<const FrameFrame *>(element);
        elements.push_back(
            {element,
             element->name(),
             nameWithSet(*element, set),
             {textOf(formulaOf(*element, 0)), textOf(formulaOf(*element, 1)), textOf(formulaOf(*element, 2))},
             frame == nullptr ? nullptr : frame->getLink()});
    }
    return elements;
}

std::vector<TransferRecord::Set> TransferRecord::setsOf(const GestFrames &manager)
{
    std::vector<Set> sets;
    for (FrameSet *set : manager.getFrameSets())
        sets.push_back({set, set->name(), elementsOf(*set)});
    return sets;
}

// The formulas of an element before, and of what it is now.
void TransferRecord::compare(const Element &before, BaseFrame *after, TransferReceipt &receipt) const
{
    for (int which = 0; which < 3; ++which) {
        if (before.formulas[which].isEmpty())
            continue;
        const QString name = nameWithSet(*after, *after->getFrameSet());
        const bool isKept = formulaOf(*after, which) != nullptr;
        if (!isKept)
            receipt.formulasDropped.push_back({name, before.formulas[which]});
        else if (after != before.element)
            receipt.formulasRebound.push_back({name, before.formulas[which]});
    }
}

void TransferRecord::fill(TransferReceipt &receipt, const EquivalenceSets &received) const
{
    const QListEx<FrameSet *> receivers = mTarget.getFrameSets();
    const QSet<FrameSet *> living(receivers.begin(), receivers.end());
    for (FrameSet *set : receivers) {
        const bool wasThere = std::any_of(mReceivers.begin(), mReceivers.end(),
                                          [&](const Set &receiver) { return receiver.set == set; });
        if (!wasThere)
            receipt.setsMade << set->name();
    }
    for (const Set &receiver : mReceivers) {
        if (!living.contains(receiver.set)) {
            receipt.setsDeleted << receiver.name;
            continue;
        }
        for (const Element &before : receiver.elements) {
            compare(before, before.element, receipt);
            const auto *const frame = dynamic_cast<const FrameFrame *>(before.element);
            if (frame != nullptr && frame->getLink() != before.link)
                receipt.framesThatChangedLinks << before.fullName;
        }
    }

    QHash<FrameSet *, QSet<BaseFrame *>> known;
    for (const Set &receiver : mReceivers) {
        for (const Element &before : receiver.elements)
            known[receiver.set].insert(before.element);
    }
    std::map<FrameSet *, NewElements> news; // shared by the sources of one receiver
    for (FrameSet *source : mTarget.getFrameSets())
        news.emplace(source, NewElements(*source, [&](BaseFrame *element) {
                         return known.value(source).contains(element);
                     }));
    for (const Set &source : mSource) {
        const auto entry = received.find(source.set);
        if (entry == received.end())
            continue;
        FrameSet *const destination = entry->second;
        for (const Element &before : source.elements) {
            BaseFrame *const after = news.at(destination).take(*before.element);
            if (after != nullptr) {
                receipt.elements.push_back({before.fullName, nameWithSet(*after, *destination)});
                compare(before, after, receipt);
            } else if (before.element->elementType() == Element_Link) {
                receipt.linksLeftBehind << before.fullName;
            }
        }
    }
}

void TransferRecord::giveBackSourceNames() const
{
    for (const Set &source : mSource) {
        for (const Element &before : source.elements)
            before.element->setName(before.name);
    }
}

} // namespace VorSystem
