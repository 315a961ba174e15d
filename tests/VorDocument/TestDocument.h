// Documents for the tests of this folder.
#pragma once

#include <VorConjoin/VorConjoin.h>
#include <VorDocument/PatternDocument.h>
#include <VorFrames/VorFrames.h>
#include <support/Pieces.h>

#include <QStringList>

#include <string>

namespace documents
{

inline QString text(const char *words)
{
    return QString::fromUtf8(words);
}

inline std::string str(const QByteArray &words)
{
    return words.toStdString();
}

inline std::string str(const QString &words)
{
    return words.toStdString();
}

inline QStringList sevenNames()
{
    return {text("34"), text("36"), text("38"), text("40"), text("42"), text("44"), text("46")};
}

/// Gives a piece made for tests to a document.
inline VorSystem::CDbGroupObject *enter(VorSystem::PatternDocument &document, support::Piece piece,
                                        const char *name)
{
    VorSystem::CDbGroupObject *group = piece.release();
    group->setName(text(name));
    document.plan().addGroup(group);
    return group;
}

/// The set Garment with the center Front and its frames Chest and Waist, the link Girth of both, the segment
/// Side and a spec Ease.
struct Elements {
    explicit Elements(VorSystem::PatternDocument &document)
    {
        set = new VorSystem::FrameSet(text("Garment"), document.framesManager());
        document.framesManager()->addFrameSet(set, -1);
        center = set->newCenter(text("Front"));
        chest = set->newFrame(text("Chest"), center);
        waist = set->newFrame(text("Waist"), center);
        link = set->newLink(text("Girth"));
        link->linkFrame(chest);
        link->linkFrame(waist);
        segment = set->newSegment(text("Side"));
        spec = set->newSpec(text("Ease"));
    }

    /// Ties center, chest and segment to a piece with four corners.
    VorSystem::ControlSkeleton *tieTo(VorSystem::PatternDocument &document, VorSystem::CDbGroupObject *piece)
    {
        VorSystem::GabaritObject *gabarit = piece->firstGabarit();
        VorSystem::ControlSkeleton *skeleton = document.newSkeleton(gabarit);
        const auto corner = [&](short index) { return gabarit->gabaritGetContourVector(index); };
        new VorSystem::ControlCenter(corner(1), corner(4), skeleton, center);
        new VorSystem::ControlFrame(corner(3), corner(3), skeleton, chest);
        new VorSystem::ControlSegment(corner(2), corner(3), skeleton, segment);
        return skeleton;
    }

    VorSystem::FrameSet *set = nullptr;
    VorSystem::FrameCenter *center = nullptr;
    VorSystem::FrameFrame *chest = nullptr;
    VorSystem::FrameFrame *waist = nullptr;
    VorSystem::FrameLink *link = nullptr;
    VorSystem::FrameSegment *segment = nullptr;
    VorSystem::FrameSpec *spec = nullptr;
};

} // namespace documents
