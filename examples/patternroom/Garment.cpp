#include "Garment.h"

#include "Console.h"
#include "FormulaText.h"
#include "Refusal.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace room
{

using namespace VorSystem;

namespace
{

constexpr int kPart = 1 << 20;    // bytes
constexpr int kLongest = 1 << 28; // bytes: no garment is that large

Refusal unreadable(const QString &path, const QString &why)
{
    return Refusal(QStringLiteral("Cannot read '%1': %2.").arg(path, why), Exit_File);
}

Refusal unwritable(const QString &path, const QString &why)
{
    return Refusal(QStringLiteral("Cannot write '%1': %2.").arg(path, why), Exit_File);
}

// Texts of Qt and of the system end with or without a stop.
QString bare(QString reason)
{
    while (reason.endsWith(QLatin1Char('.')) || reason.endsWith(QLatin1Char('\n')))
        reason.chop(1);
    return reason;
}

// Why a file could not be written. Of a part that did not fit the system tells no reason.
QString reasonOf(const QFileDevice &file)
{
    const QString reason = bare(file.errorString());
    return reason == QLatin1String("Unknown error") ? QStringLiteral("there is no room for all of it")
                                                    : reason;
}

QString formulasOf(BaseFrame *element)
{
    QString text;
    for (TreeEquations *formula : {valueFormula(element), element->formulaLevel()})
        text += formulaText(formula) + QLatin1Char('\n');
    return text;
}

// In a file formulas go by the bare names of their elements: where two bear one name, the first gets them.
void requireFormulasSurvive(const PatternDocument &document, const QByteArray &text)
{
    PatternDocument again;
    if (!documentFromText(text, again))
        return;
    const std::vector<Element> elements = elementsOf(document);
    const std::vector<Element> read = elementsOf(again);
    for (std::size_t i = 0; i < elements.size() && i < read.size(); ++i) {
        const Element &element = elements[i];
        if (formulasOf(element.element) == formulasOf(read[i].element))
            continue;
        const QString name = element.element->name();
        BaseFrame *first = element.set->foundElementAccordingName(name, true);
        throw Refusal(
            QStringLiteral("The formula of '%1' would not be read again: in a file formulas go by the bare "
                           "name '%2', which the %3 '%4' bears too. Rename one of them.")
                .arg(element.path(), name, first ? kindName(first->elementType()) : QString(),
                     first ? first->fullName() : QString()));
    }
}

// A device takes the text directly: there is nothing beside which a new file could be completed.
void storeOnDevice(const FileText &wanted)
{
    QFile device(wanted.path);
    if (!device.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        device.write(wanted.text) != wanted.text.size())
        throw unwritable(wanted.path, reasonOf(device));
}

} // namespace

DocumentPtr openDocument(const QString &path, QStringList *dropped)
{
    auto document = std::make_unique<PatternDocument>();
    DocumentReport report;
    if (!documentFromText(readText(path), *document, &report))
        throw unreadable(path, bare(report.error));
    if (dropped)
        dropped->swap(report.dropped);
    for (const QString &lost : qAsConst(report.dropped))
        VorCoreApplication::instance().showMessage(QStringLiteral("%1: %2").arg(path, lost), QString(), 0);
    document->framesManager()->adjustFrameSetsANest();
    return document;
}

FileText fileOf(const PatternDocument &document, const QString &path)
{
    DocumentReport report;
    const QByteArray text = documentToText(document, &report);
    if (text.isEmpty())
        throw unwritable(path, bare(report.error));
    requireFormulasSurvive(document, text);
    return {path, text};
}

void storeFiles(const std::vector<FileText> &files)
{
    std::vector<std::unique_ptr<QSaveFile>> complete;
    for (const FileText &wanted : files) {
        const QFileInfo info(wanted.path);
        if (info.isDir())
            throw unwritable(wanted.path, QStringLiteral("it is a folder"));
        if (info.exists() && !info.isFile()) {
            storeOnDevice(wanted);
            continue;
        }
        auto file = std::make_unique<QSaveFile>(wanted.path);
        // Flushed here: of what is in the buffer until commit() it is not told when the disk is full.
        if (!file->open(QIODevice::WriteOnly) || file->write(wanted.text) != wanted.text.size() ||
            !file->flush())
            throw unwritable(wanted.path, reasonOf(*file));
        complete.push_back(std::move(file));
    }
    for (const std::unique_ptr<QSaveFile> &file : complete) {
        if (!file->commit())
            throw unwritable(file->fileName(), reasonOf(*file));
    }
}

void storeDocument(const PatternDocument &document, const QString &path)
{
    storeFiles({fileOf(document, path)});
}

void storeText(const QByteArray &text, const QString &path)
{
    storeFiles({{path, text}});
}

QByteArray readText(const QString &path)
{
    if (QFileInfo(path).isDir())
        throw unreadable(path, QStringLiteral("it is a folder"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw unreadable(path, bare(file.errorString()));
    // Piece by piece: a device may have no end.
    QByteArray text;
    for (QByteArray part = file.read(kPart); !part.isEmpty(); part = file.read(kPart)) {
        text += part;
        if (text.size() > kLongest)
            throw unreadable(path, QStringLiteral("it is longer than 256 MB"));
    }
    if (file.error() != QFileDevice::NoError)
        throw unreadable(path, bare(file.errorString()));
    return text;
}

DocumentPtr copyOf(const PatternDocument &document)
{
    auto copy = std::make_unique<PatternDocument>();
    DocumentReport report;
    const QByteArray text = documentToText(document, &report);
    if (text.isEmpty() || !documentFromText(text, *copy, &report))
        throw Refusal(bare(report.error) + QLatin1Char('.'));
    return copy;
}

std::vector<Element> elementsOf(const PatternDocument &document)
{
    std::vector<Element> elements;
    const QListEx<FrameSet *> sets = document.framesManager()->getFrameSets();
    for (int number = 0; number < sets.size(); ++number) {
        FrameSet *set = sets.at(number);
        const auto add = [&](const auto &list, eElementFrameType kind) {
            for (int index = 0; index < list.size(); ++index)
                elements.push_back({list.at(index), set, {number, kind, index}});
        };
        add(set->getFrameMeasurementCharts(), Element_MeasurementChart);
        add(set->getFrameCenters(), Element_Center);
        add(set->getFrames(), Element_Frame);
        add(set->getFrameLinks(), Element_Link);
        add(set->getFrameSegments(), Element_Segment);
        add(set->getFrameSpecs(), Element_Spec);
    }
    return elements;
}

Element elementAt(const PatternDocument &document, const ElementPlace &place)
{
    for (const Element &candidate : elementsOf(document)) {
        if (candidate.place.set == place.set && candidate.place.kind == place.kind &&
            candidate.place.index == place.index)
            return candidate;
    }
    throw Refusal(QStringLiteral("An element was lost on the way."));
}

QString kindName(eElementFrameType kind)
{
    switch (kind) {
    case Element_Center: return QStringLiteral("center");
    case Element_Segment: return QStringLiteral("segment");
    case Element_Link: return QStringLiteral("link");
    case Element_Frame: return QStringLiteral("frame");
    case Element_Set: return QStringLiteral("set");
    case Element_Spec: return QStringLiteral("spec");
    case Element_MeasurementChart: return QStringLiteral("chart");
    }
    return QString();
}

int sizeCount(const PatternDocument &document)
{
    return GradationData::sizes(document.gradationData());
}

int nestIndex(const PatternDocument &document)
{
    return GradationData::nestNumber(document.gradationData()) - 1;
}

QStringList sizeHeadings(const PatternDocument &document)
{
    QStringList headings = document.sizeNames();
    if (headings.size() != sizeCount(document))
        return {QStringLiteral("all")};
    if (GradationData::hasNest(document.gradationData())) {
        QString &nest = headings[nestIndex(document)];
        nest = QLatin1Char('[') + nest + QLatin1Char(']');
    }
    return headings;
}

QListEx<double> valuesOf(const ValuesAccordingSizes *values, const PatternDocument &document)
{
    QListEx<double> list;
    for (int size = 0; size < sizeCount(document); ++size)
        list.append(values ? values->mValues.value(size, 0.0) : 0.0);
    return list;
}

TreeEquations *valueFormula(BaseFrame *element)
{
    if (element->elementType() == Element_Spec)
        return element->formulaSpec();
    if (auto *chart = dynamic_cast<FrameMeasurementChart *>(element))
        return chart->formulaMeasurementChart();
    return element->measurementFormula();
}

} // namespace room
