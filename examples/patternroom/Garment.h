// A document as the commands see it: where it comes from and goes to, its elements, pieces and points by
// name.
#pragma once

#include "Lengths.h"

#include <VorDocument/VorDocument.h>
#include <VorFrames/VorFrames.h>

#include <QString>

#include <memory>
#include <vector>

namespace room
{

using DocumentPtr = std::unique_ptr<VorSystem::PatternDocument>;

/// Reads a document; what was dropped on the way is told on the console, or put into dropped.
DocumentPtr openDocument(const QString &path, QStringList *dropped = nullptr);
/// A file that is to be written.
struct FileText {
    QString path;
    QByteArray text;
};
/// The file of a document; refuses one that could not be read again as it is.
FileText fileOf(const VorSystem::PatternDocument &document, const QString &path);
/// Writes files whole, and all of them or none.
void storeFiles(const std::vector<FileText> &files);
void storeDocument(const VorSystem::PatternDocument &document, const QString &path);
void storeText(const QByteArray &text, const QString &path);
/// Reads a whole file.
QByteArray readText(const QString &path);

/// A document that shares nothing with the first, to try things on.
DocumentPtr copyOf(const VorSystem::PatternDocument &document);

/// Where an element stands, so that it is found again in a copy of its document.
struct ElementPlace {
    int set = 0;
    VorSystem::eElementFrameType kind = VorSystem::Element_Frame;
    int index = 0;
};

struct Element {
    VorSystem::BaseFrame *element = nullptr;
    VorSystem::FrameSet *set = nullptr;
    ElementPlace place;

    QString fullName() const { return element->fullName(); }
    /// "Set/Center:Frame", as it can be typed.
    QString path() const { return set->name() + QLatin1Char('/') + element->fullName(); }
};

/// All elements, set by set: charts, centers, frames, links, segments, specs.
std::vector<Element> elementsOf(const VorSystem::PatternDocument &document);
/// Those of one kind, such as "frame"; all for an empty kind. Refuses a kind that is none.
std::vector<Element> elementsOfKind(const VorSystem::PatternDocument &document, const QString &kind);
/// The element at a place; it must be there.
Element elementAt(const VorSystem::PatternDocument &document, const ElementPlace &place);

/// "center", "frame", ...
QString kindName(VorSystem::eElementFrameType kind);

/// The one element of a name: "Set/Name" or "Name", for a frame "Center:Frame" or its own name where nothing
/// else bears it. kind narrows the search when it is not empty. Refuses with the nearest names.
Element findElement(const VorSystem::PatternDocument &document, const QString &name, const QString &kind);
VorSystem::FrameSet *findSet(const VorSystem::PatternDocument &document, const QString &name);
VorSystem::CDbGroupObject *findPiece(const VorSystem::PatternDocument &document, const QString &name);

/// Refuses a name that is taken.
[[noreturn]] void refuseTaken(const QString &kind, const QString &name);

/// Refuses a new name that could not be told from other text: an empty one, or one with signs of formulas or
/// of paths.
void requireName(const QString &name, bool isSet);

/// The set and the bare name of "Set/Name"; the only set for "Name".
struct NameInSet {
    VorSystem::FrameSet *set = nullptr;
    QString name;
};
NameInSet splitPath(const VorSystem::PatternDocument &document, const QString &path);

/// All vectors of a piece: contours first, then its own.
std::vector<VorSystem::CDbPointVOR *> pointsOf(const VorSystem::CDbGroupObject *piece);
/// A point of a piece: "#7" by its number, or a place as the nearest point of the nest, like a click.
VorSystem::CDbPointVOR *findPoint(const VorSystem::CDbGroupObject *piece, const QString &where,
                                  const LengthStyle &style);
/// The coordinates of "24.5,16", or "24,5;16" in a locale that writes so, in centimetres.
VorSystem::GeoPoint2D placeOf(const QString &where, const LengthStyle &style);

/// The nearest of the known names, as the end of a refusal: " Do you mean 'Waist'?", or empty.
QString nearest(const QString &name, const QStringList &known);

/// Number of sizes, at least 1.
int sizeCount(const VorSystem::PatternDocument &document);
/// Position of the nest among the sizes.
int nestIndex(const VorSystem::PatternDocument &document);
/// Names of the sizes as headings, the nest in brackets; "all" where there are none.
QStringList sizeHeadings(const VorSystem::PatternDocument &document);
/// The stored values, one per size whatever is stored.
VorSystem::QListEx<double> valuesOf(const VorSystem::ValuesAccordingSizes *values,
                                    const VorSystem::PatternDocument &document);

/// The formula that gives the measure, for a spec its value; null for none.
VorSystem::TreeEquations *valueFormula(VorSystem::BaseFrame *element);

} // namespace room
