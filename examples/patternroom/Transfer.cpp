// Pieces with their skeletons and sets from one document into another, with a receipt.
#include "Commands.h"

#include <VorConjoin/VorConjoin.h>

#include <QFileInfo>

namespace room
{

using namespace VorSystem;

namespace
{

bool standsOn(const CDbGroupObject &piece, const FrameSet *set)
{
    for (GabaritObject *outline = piece.firstGabarit(); outline; outline = outline->mNextGabarit) {
        const ControlSkeleton *skeleton = outline->controlSkeleton();
        if (skeleton && skeleton->getFrameSet() == set)
            return true;
    }
    return false;
}

std::vector<CDbGroupObject *> chosenPieces(const PatternDocument &source, const TransferOptions &options)
{
    const FrameSet *set = options.set.isEmpty() ? nullptr : findSet(source, options.set);
    std::vector<CDbGroupObject *> pieces;
    for (const QString &name : options.pieces.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        CDbGroupObject *piece = findPiece(source, name.trimmed());
        if (set && !standsOn(*piece, set))
            throw Refusal(
                QStringLiteral("No element of '%1' is on the piece '%2'.").arg(set->name(), piece->name()));
        pieces.push_back(piece);
    }
    if (!options.pieces.isEmpty())
        return pieces;
    for (CDbGroupObject *piece : source.pieces()) {
        if (!set || standsOn(*piece, set))
            pieces.push_back(piece);
    }
    return pieces;
}

void requirePlaces(const TransferOptions &options)
{
    requireTarget(options);
    if (options.renamesSource && options.sourceOutput.isEmpty())
        throw Refusal(
            QStringLiteral("--rename-source needs --source-out FILE for the source with its new names."),
            Exit_Usage);
    if (!options.renamesSource && !options.sourceOutput.isEmpty())
        throw Refusal(QStringLiteral("--source-out is for a source that --rename-source gives new names."),
                      Exit_Usage);
    const QString target = options.isInPlace ? options.document : options.output;
    if (QFileInfo(options.sourceOutput).absoluteFilePath() == QFileInfo(target).absoluteFilePath())
        throw Refusal(QStringLiteral("'%1' cannot take both the source and the result.").arg(target),
                      Exit_Usage);
}

QString inWords(const TransferReceipt &receipt)
{
    QString text;
    const auto line = [&](const QString &what, const QString &which) {
        text += what + QLatin1String(": ") + which + QLatin1Char('\n');
    };
    for (const CDbGroupObject *piece : receipt.pieces)
        line(QStringLiteral("piece"), piece->name());
    for (const QString &set : receipt.setsMade)
        line(QStringLiteral("new set"), set);
    for (const QString &set : receipt.setsDeleted)
        line(QStringLiteral("set that went"), set);
    for (const auto &element : receipt.elements) {
        line(QStringLiteral("element"), element.oldName == element.newName
                                            ? element.newName
                                            : element.oldName + QLatin1String(" -> ") + element.newName);
    }
    for (const auto &formula : receipt.formulasRebound)
        line(QStringLiteral("formula kept"), formula.element + QLatin1String(" = ") + formula.text);
    for (const auto &formula : receipt.formulasDropped)
        line(QStringLiteral("formula dropped"), formula.element + QLatin1String(" = ") + formula.text);
    for (const QString &link : receipt.linksLeftBehind)
        line(QStringLiteral("link left behind"), link);
    for (const QString &frame : receipt.framesThatChangedLinks)
        line(QStringLiteral("frame that changed its link"), frame);
    for (const QString &piece : receipt.piecesWithoutSkeleton)
        line(QStringLiteral("piece without skeleton"), piece);
    return text;
}

} // namespace

int transfer(const TransferOptions &options)
{
    requirePlaces(options);
    const DocumentPtr source = openDocument(options.source);
    const DocumentPtr target = openDocument(options.document);
    TransferWish wish;
    wish.merges = options.merges;
    wish.withValues = options.withValues;
    wish.renamesSource = options.renamesSource;
    const TransferReceipt receipt = transferPieces(*source, chosenPieces(*source, options), *target, wish);
    if (receipt.isRefused())
        throw Refusal(QStringLiteral("Nothing was transferred: %1").arg(receipt.refusal));
    std::vector<FileText> files{fileOf(*target, options.isInPlace ? options.document : options.output)};
    if (options.renamesSource)
        files.push_back(fileOf(*source, options.sourceOutput));
    storeFiles(files);
    options.console->print(inWords(receipt));
    return Exit_Done;
}

} // namespace room
