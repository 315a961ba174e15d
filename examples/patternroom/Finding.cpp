// Elements, sets, pieces and points by what the user typed, and what he may have meant instead.
#include "Garment.h"
#include "Refusal.h"

#include <QLocale>

#include <algorithm>
#include <limits>
#include <numeric>

namespace room
{

using namespace VorSystem;

namespace
{

constexpr double kClick = 1.0; // cm: how far from a point a click may be
constexpr int kSuggestions = 3;
constexpr int kListed = 6;    // names at the most that are told when none is near
constexpr int kLongest = 200; // letters; no name is so long, and comparing takes its time

QString folded(const QString &name)
{
    QString letters;
    for (const QChar letter : name) {
        if (!letter.isSpace())
            letters += letter;
    }
    return letters.toCaseFolded();
}

// How many letters must be changed, left out or put in to make b of a.
int distanceOf(const QString &a, const QString &b)
{
    std::vector<int> row(static_cast<std::size_t>(b.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 1; i <= a.size(); ++i) {
        int diagonal = row[0];
        row[0] = i;
        for (int j = 1; j <= b.size(); ++j) {
            int &here = row[static_cast<std::size_t>(j)];
            const int above = here;
            const int change = diagonal + (a.at(i - 1) == b.at(j - 1) ? 0 : 1);
            here = std::min({change, above + 1, row[static_cast<std::size_t>(j) - 1] + 1});
            diagonal = above;
        }
    }
    return row.back();
}

// The same, but any number beyond farthest when the names cannot be that near.
int wayTo(const QString &wanted, const QString &name, int farthest)
{
    const bool isFar = std::abs(name.size() - wanted.size()) > farthest || wanted.size() > kLongest;
    return isFar ? farthest + 1 : distanceOf(wanted, name);
}

// "Waist" of "Bodice/Front:Waist".
QString bareName(const QString &path)
{
    return path.section(QLatin1Char('/'), -1).section(QLatin1Char(':'), -1);
}

QString quotedList(const QStringList &names, const QString &last)
{
    QString text;
    for (int i = 0; i < names.size(); ++i) {
        if (i > 0)
            text += i + 1 == names.size() ? last : QStringLiteral(", ");
        text += QLatin1Char('\'') + names.at(i) + QLatin1Char('\'');
    }
    return text;
}

eElementFrameType kindOf(const QString &name)
{
    for (const eElementFrameType kind : {Element_Center, Element_Segment, Element_Link, Element_Frame,
                                         Element_Spec, Element_MeasurementChart}) {
        if (name == kindName(kind))
            return kind;
    }
    throw Refusal(QStringLiteral("There is no kind of element called '%1': choose center, frame, segment, "
                                 "link, spec or chart.")
                      .arg(name),
                  Exit_Usage);
}

template<class Matches>
std::vector<Element> filtered(const std::vector<Element> &elements, const Matches &matches)
{
    std::vector<Element> found;
    std::copy_if(elements.begin(), elements.end(), std::back_inserter(found), matches);
    return found;
}

} // namespace

std::vector<CDbPointVOR *> pointsOf(const CDbGroupObject *piece)
{
    std::vector<CDbPointVOR *> points;
    for (const GabaritObject *gabarit = piece->firstGabarit(); gabarit; gabarit = gabarit->mNextGabarit)
        points.insert(points.end(), gabarit->contourVectors().begin(), gabarit->contourVectors().end());
    points.insert(points.end(), piece->ownVectors().begin(), piece->ownVectors().end());
    return points;
}

QString nearest(const QString &name, const QStringList &known)
{
    const QString wanted = folded(name);
    const int farthest = std::max(2, wanted.size() / 3);
    std::vector<std::pair<int, QString>> close;
    for (const QString &candidate : known) {
        // It may be meant without its set, and a frame without its center.
        const int distance = std::min(wayTo(wanted, folded(candidate), farthest),
                                      wayTo(wanted, folded(bareName(candidate)), farthest));
        if (distance <= farthest)
            close.emplace_back(distance, candidate);
    }
    std::stable_sort(close.begin(), close.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    QStringList best;
    for (const auto &candidate : close) {
        if (best.size() < kSuggestions && !best.contains(candidate.second))
            best << candidate.second;
    }
    if (!best.isEmpty())
        return QStringLiteral(" Do you mean %1?").arg(quotedList(best, QStringLiteral(" or ")));
    if (known.isEmpty())
        return QStringLiteral(" There is none.");
    if (known.size() > kListed)
        return QString();
    return (known.size() == 1 ? QStringLiteral(" There is only %1.") : QStringLiteral(" There are %1."))
        .arg(quotedList(known, QStringLiteral(" and ")));
}

std::vector<Element> elementsOfKind(const PatternDocument &document, const QString &kind)
{
    if (kind.isEmpty())
        return elementsOf(document);
    const eElementFrameType wanted = kindOf(kind);
    return filtered(elementsOf(document), [&](const Element &e) { return e.place.kind == wanted; });
}

Element findElement(const PatternDocument &document, const QString &name, const QString &kind)
{
    const std::vector<Element> elements = elementsOfKind(document, kind);
    std::vector<Element> found = filtered(elements, [&](const Element &e) {
        return Noms_Identiques(e.fullName(), name) || Noms_Identiques(e.path(), name);
    });
    if (found.empty())
        found =
            filtered(elements, [&](const Element &e) { return Noms_Identiques(e.element->name(), name); });
    if (found.size() == 1)
        return found.front();

    if (found.empty()) {
        const bool isWithSet =
            name.contains(QLatin1Char('/')) || document.framesManager()->getFrameSets().size() > 1;
        QStringList known;
        for (const Element &element : elements)
            known << (isWithSet ? element.path() : element.fullName());
        const QString hint = nearest(name, known);
        throw Refusal(QStringLiteral("There is no %1 '%2'.%3")
                          .arg(kind.isEmpty() ? QStringLiteral("element") : kind, name,
                               hint.isEmpty() ? QStringLiteral(" 'show DOC' lists them.") : hint));
    }
    QStringList candidates;
    for (const Element &element : found)
        candidates << QStringLiteral("%1 (%2)").arg(element.path(), kindName(element.place.kind));
    throw Refusal(QStringLiteral("'%1' is ambiguous: %2. Write one of these names, or give the --kind.")
                      .arg(name, candidates.join(QStringLiteral(", "))));
}

FrameSet *findSet(const PatternDocument &document, const QString &name)
{
    if (FrameSet *set = document.framesManager()->getFrameSetAccordingName(name))
        return set;
    QStringList known;
    const QListEx<FrameSet *> sets = document.framesManager()->getFrameSets();
    for (const FrameSet *set : sets)
        known << set->name();
    throw Refusal(QStringLiteral("There is no set '%1'.%2").arg(name, nearest(name, known)));
}

CDbGroupObject *findPiece(const PatternDocument &document, const QString &name)
{
    QStringList known;
    std::vector<CDbGroupObject *> found;
    for (CDbGroupObject *piece : document.pieces()) {
        if (Noms_Identiques(piece->name(), name))
            found.push_back(piece);
        known << piece->name();
    }
    if (found.size() == 1)
        return found.front();
    if (found.empty())
        throw Refusal(QStringLiteral("There is no piece '%1'.%2").arg(name, nearest(name, known)));
    throw Refusal(QStringLiteral("'%1' is ambiguous: %2 pieces bear this name.").arg(name).arg(found.size()));
}

void refuseTaken(const QString &kind, const QString &name)
{
    throw Refusal(
        QStringLiteral("There is a %1 '%2' already, or one that counts as the same name.").arg(kind, name));
}

void requireName(const QString &name, bool isSet)
{
    if (name.isEmpty())
        throw Refusal(QStringLiteral("The name is empty."));
    const QString forbidden = isSet ? QStringLiteral("/") : QStringLiteral(":/()*+-%");
    for (const QChar letter : name) {
        if (!forbidden.contains(letter))
            continue;
        throw Refusal((isSet ? QStringLiteral("The name '%1' holds '%2', which parts a set from an element.")
                             : QStringLiteral("The name '%1' holds '%2', and no formula could name it."))
                          .arg(name, QString(letter)));
    }
}

NameInSet splitPath(const PatternDocument &document, const QString &path)
{
    const int slash = path.indexOf(QLatin1Char('/'));
    if (slash >= 0)
        return {findSet(document, path.left(slash)), path.mid(slash + 1).trimmed()};
    const QListEx<FrameSet *> sets = document.framesManager()->getFrameSets();
    if (sets.isEmpty())
        throw Refusal(QStringLiteral("The document has no set yet: make one with 'add DOC set NAME'."));
    if (sets.size() > 1) {
        throw Refusal(QStringLiteral("There are %1 sets: write the one that is meant before the name, as in "
                                     "'%2/%3'.")
                          .arg(QString::number(sets.size()), sets.first()->name(), path));
    }
    return {sets.first(), path.trimmed()};
}

GeoPoint2D placeOf(const QString &where, const LengthStyle &style)
{
    // Where the comma parts the coordinates, decimals are written with a dot; else as in the locale.
    const bool isLocal = where.contains(QLatin1Char(';'));
    const QLocale locale = isLocal ? QLocale() : QLocale::c();
    const QStringList parts = where.split(isLocal ? QLatin1Char(';') : QLatin1Char(','));
    bool isX = false;
    bool isY = false;
    const double x = style.unit.toCentimeter(locale.toDouble(parts.value(0).trimmed(), &isX));
    const double y = style.unit.toCentimeter(locale.toDouble(parts.value(1).trimmed(), &isY));
    if (parts.size() != 2 || !isX || !isY || !(std::abs(x) <= 1e5) || !(std::abs(y) <= 1e5)) {
        throw Refusal(QStringLiteral("'%1' is no point: write '#7' for point 7, or a place such as "
                                     "'24.5,16'.")
                          .arg(where));
    }
    return {x, y};
}

CDbPointVOR *findPoint(const CDbGroupObject *piece, const QString &where, const LengthStyle &style)
{
    if (where.startsWith(QLatin1Char('#'))) {
        bool isNumber = false;
        const int number = where.mid(1).toInt(&isNumber);
        CDbPointVOR *point = isNumber ? piece->vectorOfIdentity(number) : nullptr;
        if (point)
            return point;
        throw Refusal(QStringLiteral("'%1' has no point '%2': 'show DOC --points \"%1\"' lists them.")
                          .arg(piece->name(), where));
    }

    const GeoPoint2D click = placeOf(where, style);
    CDbPointVOR *closest = nullptr;
    double least = std::numeric_limits<double>::infinity();
    for (CDbPointVOR *point : pointsOf(piece)) {
        // Handles and caps follow other points: nothing can be tied to them.
        if (!point->isAnchor())
            continue;
        const double distance = point->distance(click);
        if (distance < least) {
            least = distance;
            closest = point;
        }
    }
    if (least <= kClick)
        return closest;
    QString hint;
    if (closest) {
        const auto inUnit = [&](double length) {
            return QString::number(style.unit.fromCentimeter(length), 'f', 2);
        };
        hint =
            QStringLiteral(" The nearest is #%1 at %2,%3.")
                .arg(QString::number(closest->Num_ID().number()), inUnit(closest->x()), inUnit(closest->y()));
    }
    throw Refusal(QStringLiteral("'%1' has no point within 1 cm of '%2'.%3").arg(piece->name(), where, hint));
}

} // namespace room
