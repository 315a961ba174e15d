// Taking pieces with their skeletons and frame sets over into another document.
#pragma once

#include <VorDocument/VorDocumentExport.h>

#include <QString>
#include <QStringList>

#include <vector>

namespace VorSystem
{

class CDbGroupObject;
class PatternDocument;

/// What a transfer is asked for.
struct TransferWish {
    bool merges = true;         ///< into the sets of the same names; else every source gets a new set
    bool withValues = true;     ///< else the values are read from the pieces anew
    bool renamesSource = false; ///< elements of the source take the names that the new ones got
};

/// What became of a transfer. Elements are named as "set/element".
struct TransferReceipt {
    /// An element that went along; both names are equal unless the target had such a name already.
    struct Renaming {
        QString oldName; ///< in the source
        QString newName; ///< in the target
    };
    /// A formula, and where it hangs or hung.
    struct Formula {
        QString element; ///< in the target
        QString text;    ///< before the transfer
    };

    /// True when nothing was done.
    bool isRefused() const { return !refusal.isEmpty(); }

    QString refusal;                      ///< why nothing was done; empty when it was
    std::vector<CDbGroupObject *> pieces; ///< the new ones, owned by the target, in the order asked for
    std::vector<Renaming> elements;       ///< everything that went along
    std::vector<Formula> formulasRebound; ///< of elements that went along
    std::vector<Formula> formulasDropped; ///< the same, and formulas that the receiving sets lost
    QStringList linksLeftBehind;          ///< links of the source
    QStringList framesThatChangedLinks;   ///< frames that the target had, taken into a new link
    QStringList setsMade;                 ///< names of the target's new sets
    QStringList setsDeleted;              ///< names of sets that the target had and lost
    QStringList piecesWithoutSkeleton; ///< new pieces whose skeleton would have pointed at what stayed behind
};

/// Copies the pieces into target and ties the copies to elements of the target alone: a change there moves
/// the copy, and the source stands still.
///
/// Only sets of which something is on the pieces take part, so no set of the target is lost by a source that
/// has nothing to give. Refused, with nothing changed: pieces that are not the source's or none, documents
/// with different sizes, a correspondence of groups in force in the source, and a merge of a document into
/// itself.
VORDOCUMENT_EXPORT TransferReceipt transferPieces(PatternDocument &source,
                                                  const std::vector<CDbGroupObject *> &pieces,
                                                  PatternDocument &target, const TransferWish &wish = {});

} // namespace VorSystem
