// An empty document, and nests of other programs.
#include "Commands.h"

#include <QFileInfo>

namespace room
{

using namespace VorSystem;

namespace
{

void setSizes(PatternDocument &document, const NewOptions &options)
{
    if (options.sizes.isEmpty()) {
        if (!options.nest.isEmpty())
            throw Refusal(QStringLiteral("--nest goes with --sizes."), Exit_Usage);
        return;
    }
    QStringList sizes;
    for (const QString &size : options.sizes.split(QLatin1Char(';')))
        sizes << size.trimmed();
    const QString wanted = options.nest.trimmed();
    const int nest = wanted.isEmpty() ? (sizes.size() - 1) / 2 : sizes.indexOf(wanted);
    if (nest < 0) {
        throw Refusal(QStringLiteral("The nest '%1' is none of the sizes %2.%3")
                          .arg(wanted, sizes.join(QLatin1Char(';')), nearest(wanted, sizes)));
    }
    if (sizes.contains(QString()) || !document.setSizes(sizes, static_cast<short>(nest + 1)))
        throw Refusal(QStringLiteral("'%1' are no sizes: each needs a name of its own.").arg(options.sizes));
}

} // namespace

int newDocument(const NewOptions &options)
{
    if (QFileInfo::exists(options.document) && !options.isForced) {
        throw Refusal(QStringLiteral("'%1' is there already: --force writes over it.").arg(options.document),
                      Exit_File);
    }
    PatternDocument document;
    document.setName(options.name.isEmpty() ? QFileInfo(options.document).baseName() : options.name);
    setSizes(document, options);
    storeDocument(document, options.document);
    options.console->print(document.sizeNames().isEmpty()
                               ? QStringLiteral("New document '%1' without sizes\n").arg(document.name())
                               : QStringLiteral("New document '%1' with sizes %2\n")
                                     .arg(document.name(), sizeHeadings(document).join(QLatin1Char(' '))));
    return Exit_Done;
}

int import(const ImportOptions &options)
{
    if (options.output.isEmpty())
        throw Refusal(QStringLiteral("Say where the document goes: -o FILE."), Exit_Usage);
    PatternDocument document;
    DocumentReport report;
    if (!importNest(readText(options.file), document, &report))
        throw Refusal(QStringLiteral("Cannot import '%1': %2").arg(options.file, report.error), Exit_File);
    if (document.name().isEmpty())
        document.setName(QFileInfo(options.file).baseName());
    for (const QString &lost : qAsConst(report.dropped))
        options.console->tell(lost);
    storeDocument(document, options.output);

    Table table({QStringLiteral("piece"), QStringLiteral("points"), QStringLiteral("area in the nest, cm2")});
    for (const CDbGroupObject *piece : document.pieces()) {
        table.add({piece->name(), QString::number(piece->firstGabarit()->contourCount()),
                   QLocale().toString(piece->firstGabarit()->area(), 'f', 1)});
    }
    options.console->print(QStringLiteral("Sizes %1\n").arg(sizeHeadings(document).join(QLatin1Char(' '))) +
                           table.print(Table_Text));
    return Exit_Done;
}

} // namespace room
