#include "FormulaArrivals.h"

#include "FormulaPlaces.h"
#include "Told.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QSet>

#include <algorithm>
#include <vector>

namespace VorSystem
{

namespace
{

// The elements of a set by name, first come first served. What it answers is only told, never acted upon.
class Names
{
public:
    explicit Names(const FrameSet &set)
    {
        forEachElement(set, [&](BaseFrame *element) {
            // A name with a colon means a frame by its center, and is split at the first one.
            if (!element->name().contains(QLatin1Char(':')))
                enter(element->name(), element);
            if (element->elementType() == Element_Frame)
                enter(element->fullName(), element);
        });
    }

    BaseFrame *find(const QString &name) const { return mElements.value(folded(name)); }

private:
    void enter(const QString &name, BaseFrame *element)
    {
        BaseFrame *&place = mElements[folded(name)];
        if (place == nullptr)
            place = element;
    }

    static QString folded(const QString &name)
    {
        QString letters;
        for (const QChar letter : name) {
            if (!letter.isSpace())
                letters += letter;
        }
        return letters.toCaseFolded();
    }

    QHash<QString, BaseFrame *> mElements;
};

// The name of the first reference without an element; false when every reference has one.
bool hasHole(const TreeEquations &formula, QString &name)
{
    std::vector<const ElementEquation *> rest{formula.root};
    while (!rest.empty()) {
        const ElementEquation *const node = rest.back();
        rest.pop_back();
        if (node == nullptr)
            continue;
        if ((node->contents == ElemMeasure || node->contents == ElemLevel) && node->element == nullptr) {
            name = node->pendingName;
            return true;
        }
        rest.push_back(node->sonRight);
        rest.push_back(node->sonLeft);
    }
    return false;
}

void takeOffFormulasWithHoles(const FrameSet &set, Told &told)
{
    forEachElement(set, [&](BaseFrame *element) {
        for (const FormulaPlace &place : kFormulaPlaces) {
            const TreeEquations *const formula = (element->*place.formula)();
            QString name;
            if (formula == nullptr || !hasHole(*formula, name))
                continue;
            (element->*place.setFormula)(nullptr);
            told.add(QStringLiteral("the %1 of \"%2\" was left out: it names \"%3\", which is not there.")
                         .arg(QLatin1String(place.words), element->fullName(), name));
        }
    });
}

bool isStored(const QJsonValue &formula)
{
    return !formula.isUndefined() && !formula.isNull();
}

// A record without any formula counts too: it does not arrive either.
int countOfStored(const QJsonArray &records)
{
    int count = 0;
    for (const QJsonValue item : records) {
        const QJsonObject record = item.toObject();
        int formulas = 0;
        for (const FormulaPlace &place : kFormulaPlaces)
            formulas += isStored(record.value(QLatin1String(place.key))) ? 1 : 0;
        count += std::max(formulas, 1);
    }
    return count;
}

int countOfArrived(const FrameSet &set)
{
    int count = 0;
    forEachElement(set, [&](BaseFrame *element) {
        for (const FormulaPlace &place : kFormulaPlaces)
            count += (element->*place.formula)() != nullptr ? 1 : 0;
    });
    return count;
}

bool haveTexts(const QJsonArray &records)
{
    for (const QJsonValue record : records) {
        for (const FormulaPlace &place : kFormulaPlaces) {
            if (record.toObject().value(QLatin1String(place.key)).isString())
                return true;
        }
    }
    return false;
}

void tellRecords(const QJsonArray &records, FrameSet &set, Told &told)
{
    const Names names(set);
    QSet<QPair<BaseFrame *, const FormulaPlace *>> taken;
    for (const QJsonValue item : records) {
        const QJsonObject record = item.toObject();
        const QString name = record.value(QStringLiteral("name")).toString();
        BaseFrame *const element = names.find(name);
        if (element == nullptr) {
            told.add(QStringLiteral("a record of formulas is for \"%1\", which is not there.").arg(name));
            continue;
        }
        for (const FormulaPlace &place : kFormulaPlaces) {
            const QJsonValue formula = record.value(QLatin1String(place.key));
            const QString what =
                QStringLiteral("the %1 of \"%2\"").arg(QLatin1String(place.words), element->fullName());
            if (!isStored(formula))
                continue;
            if (!formula.isString() && !formula.isObject())
                told.add(what + QStringLiteral(" was left out: it is neither a text nor a formula."));
            else if (!place.isIn(*element))
                told.add(what + QStringLiteral(" was left out: such an element takes none."));
            else if ((element->*place.formula)() == nullptr)
                told.add(
                    QStringLiteral("%1 was left out: \"%2\" is no formula.").arg(what, formula.toString()));
            else if (taken.contains({element, &place}))
                told.add(what + QStringLiteral(" stands there more than once: the last one was taken."));
            else
                taken.insert({element, &place});
        }
    }
}

} // namespace

void tellFormulasThatDidNotArrive(const QJsonArray &records, FrameSet &set, Told &told)
{
    // Every formula that arrived has a place of its own, so that equal counts mean that all of them did.
    if (countOfStored(records) != countOfArrived(set))
        tellRecords(records, set, told);
    if (haveTexts(records))
        takeOffFormulasWithHoles(set, told);
}

QString whyFormulaFails(const QJsonObject &record, const FrameSet &set)
{
    const QString whose =
        QStringLiteral("the formula of \"%1\"").arg(record.value(QStringLiteral("name")).toString());
    std::vector<QJsonValue> rest;
    rest.reserve(kFormulaPlaces.size());
    for (const FormulaPlace &place : kFormulaPlaces)
        rest.push_back(record.value(QLatin1String(place.key)).toObject().value(QLatin1String("root")));
    while (!rest.empty()) {
        const QJsonObject node = rest.back().toObject();
        rest.pop_back();
        const int contents = node.value(QStringLiteral("contents")).toInt(0);
        const QString name = node.value(QStringLiteral("frame_element")).toString();
        if ((contents == ElemMeasure || contents == ElemLevel) &&
            set.foundElementAccordingName(name, true) == nullptr)
            return QStringLiteral("%1 names \"%2\", which is %3")
                .arg(whose, name,
                     name.contains(QLatin1Char(':')) ? QStringLiteral("no frame of a center")
                                                     : QStringLiteral("not there"));
        if (contents >= ElemParenthesis && contents <= ElemDivide)
            rest.push_back(node.value(QStringLiteral("son_left")));
        if (contents >= ElemAdd && contents <= ElemDivide)
            rest.push_back(node.value(QStringLiteral("son_right")));
    }
    return whose + QStringLiteral(" cannot be worked out");
}

} // namespace VorSystem
