// Pieces that go over into another document with their skeletons and sets.

#include "TestDocument.h"

#include <VorDocument/Transfer.h>
#include <support/RecordingApplication.h>

#include <gtest/gtest.h>

using namespace VorSystem;
using documents::text;

namespace
{

// A graded 40 x 60 rectangle with an upright axis, chords Hip 20 cm and Chest 50 cm up, and a side.
struct TiedPiece {
    TiedPiece(PatternDocument &document, const char *pieceName, const char *setName)
    {
        GestFrames &manager = *document.framesManager();
        support::Piece rectangle = support::rectangle(40.0, 60.0, 6);
        const std::vector<CDbPointVOR *> at = rectangle.contour;
        GabaritObject *const gabarit = rectangle.gabarit;
        group = documents::enter(document, std::move(rectangle), pieceName);
        set = manager.getFrameSetAccordingName(text(setName));
        if (set == nullptr) {
            set = new FrameSet(text(setName), &manager);
            manager.addFrameSet(set, -1);
        }
        ControlSkeleton *const skeleton = document.newSkeleton(gabarit);
        center = set->newCenter(text(pieceName));
        center->setCharacteristic(FrameCenter::Characteristic_TwoSides);
        new ControlCenter(at[3], at[15], skeleton, center);
        hip = set->newFrame(text("Hip"), center);
        new ControlFrame(at[22], at[8], skeleton, hip);
        chest = set->newFrame(text("Chest"), center);
        new ControlFrame(at[19], at[11], skeleton, chest);
        set->reevaluate(Reevaluate_Store);
    }

    CDbGroupObject *group = nullptr;
    FrameSet *set = nullptr;
    FrameCenter *center = nullptr;
    FrameFrame *hip = nullptr;
    FrameFrame *chest = nullptr;
};

std::string measures(FrameFrame *frame)
{
    QStringList texts;
    for (const double value : frame->getMeasureBySizes()->mValues)
        texts << QString::number(value, 'f', 2);
    return texts.join(text(" ")).toStdString();
}

// What the piece itself shows, in the nest.
std::string shown(FrameFrame *frame)
{
    double value = 0.0;
    return frame->evaluateMeasurementObject(-1, value) ? QString::number(value, 'f', 2).toStdString() : "-";
}

FrameFrame *find(const FrameSet *set, const char *fullName)
{
    return dynamic_cast<FrameFrame *>(set->foundElementAccordingName(text(fullName), true));
}

std::string told(const std::vector<TransferReceipt::Formula> &formulas)
{
    QStringList texts;
    for (const TransferReceipt::Formula &formula : formulas)
        texts << formula.element + text(" = ") + formula.text;
    return texts.join(text("; ")).toStdString();
}

std::string told(const std::vector<TransferReceipt::Renaming> &renamings)
{
    QStringList texts;
    for (const TransferReceipt::Renaming &renaming : renamings)
        texts << renaming.oldName + text(" > ") + renaming.newName;
    return texts.join(text("; ")).toStdString();
}

std::string told(const QStringList &texts)
{
    return texts.join(text("; ")).toStdString();
}

// Two documents of seven sizes: Front and Back in the set Garment of the first, Front in that of the second.
class Transfer : public testing::Test
{
protected:
    Transfer()
    {
        from.setSizes(documents::sevenNames(), 4);
        to.setSizes(documents::sevenNames(), 4);
        front = std::make_unique<TiedPiece>(from, "Front", "Garment");
        back = std::make_unique<TiedPiece>(from, "Back", "Garment");
        old = std::make_unique<TiedPiece>(to, "Front", "Garment");
    }
    static void give(FrameFrame *frame, const char *formula)
    {
        frame->setFormulaMeasurement(TreeEquations::parse(text(formula), frame->getFrameSet(), true));
    }
    /// Every size of the frame that much wider.
    static bool widen(FrameFrame *frame, double by)
    {
        QListEx<double> wanted;
        for (const double value : frame->getMeasureBySizes()->mValues)
            wanted.append(value + by);
        return frame->applyValues(&wanted, nullptr, nullptr);
    }

    support::RecordingApplication application;
    PatternDocument from;
    PatternDocument to;
    std::unique_ptr<TiedPiece> front;
    std::unique_ptr<TiedPiece> back;
    std::unique_ptr<TiedPiece> old;
};

TEST_F(Transfer, theTransferredPieceObeysAndTheSourceStandsStill)
{
    for (const bool merges : {true, false}) {
        TransferWish wish;
        wish.merges = merges;
        const TransferReceipt receipt = transferPieces(from, {front->group}, to, wish);
        ASSERT_FALSE(receipt.isRefused());
        ASSERT_EQ(receipt.pieces.size(), 1u);
        EXPECT_EQ(told(receipt.piecesWithoutSkeleton), "");

        ControlSkeleton *const skeleton = receipt.pieces[0]->firstGabarit()->controlSkeleton();
        ASSERT_NE(skeleton, nullptr);
        FrameFrame *const chest = skeleton->getFrameLists().at(1)->getFrameFrame();
        EXPECT_EQ(chest->document(), &to);
        EXPECT_EQ(measures(chest), measures(front->chest));
        const std::string before = shown(front->chest);

        EXPECT_TRUE(widen(chest, 2.0));
        EXPECT_EQ(shown(chest), "42.00");
        EXPECT_EQ(shown(front->chest), before);
        EXPECT_EQ(shown(old->chest), before);
    }
}

TEST_F(Transfer, tellsTheNewNamesAndGivesTheOldOnesBackToTheSource)
{
    const TransferReceipt receipt = transferPieces(from, {front->group, back->group}, to);
    EXPECT_EQ(told(receipt.elements),
              "Garment/Front > Garment/Front1; Garment/Back > Garment/Back; "
              "Garment/Front:Hip > Garment/Front1:Hip; Garment/Front:Chest > Garment/Front1:Chest; "
              "Garment/Back:Hip > Garment/Back:Hip; Garment/Back:Chest > Garment/Back:Chest");
    EXPECT_EQ(front->center->name(), text("Front"));
    EXPECT_EQ(receipt.pieces[0]->name(), text("Front1"));
    EXPECT_EQ(receipt.pieces[1]->name(), text("Back"));
    EXPECT_EQ(told(receipt.setsMade), "");
    EXPECT_EQ(told(receipt.setsDeleted), "");

    TransferWish renaming;
    renaming.renamesSource = true;
    transferPieces(from, {front->group}, to, renaming);
    EXPECT_EQ(front->center->name(), text("Front2"));
}

TEST_F(Transfer, formulasFollowTheTransferredPiece)
{
    give(front->chest, "Measure(Front:Hip) + 1");
    give(back->chest, "Measure(Front:Hip)");
    give(front->hip, "40");
    give(back->hip, "Measure(Back:Chest)");
    const TransferReceipt receipt = transferPieces(from, {front->group}, to);
    EXPECT_EQ(told(receipt.formulasRebound),
              "Garment/Front1:Hip = 40; Garment/Front1:Chest = Measure(Front:Hip) + 1");
    EXPECT_EQ(told(receipt.formulasDropped), "");
    EXPECT_EQ(find(old->set, "Front1:Chest")->measurementFormula()->toString(),
              text("Measure(Front1:Hip) + 1"));

    const TransferReceipt second = transferPieces(from, {back->group}, to);
    EXPECT_EQ(told(second.formulasDropped), "");
    // Without renaming "Front:Hip" is what the target knew by that name.
    EXPECT_EQ(find(old->set, "Back:Chest")->measurementFormula()->root->element, old->hip);
}

TEST_F(Transfer, aFormulaOnWhatStayedBehindIsToldAsDropped)
{
    give(back->chest, "Measure(Front:Hip)");
    TransferWish wish;
    wish.merges = false;
    const TransferReceipt receipt = transferPieces(from, {back->group}, to, wish);
    EXPECT_EQ(told(receipt.setsMade), "Garment 1");
    EXPECT_EQ(told(receipt.formulasDropped), "Garment 1/Back:Chest = Measure(Front:Hip)");
    EXPECT_EQ(told(receipt.formulasRebound), "");
}

TEST_F(Transfer, aLinkGoesAlongOnlyWithAllItsFrames)
{
    FrameLink *const both = front->set->newLink(text("Both"));
    both->linkFrame(front->chest);
    both->linkFrame(back->chest);
    FrameLink *const own = front->set->newLink(text("Own"));
    own->linkFrame(front->hip);
    const TransferReceipt receipt = transferPieces(from, {front->group}, to);
    EXPECT_EQ(told(receipt.linksLeftBehind), "Garment/Both");
    FrameLink *const copied = old->set->findFrameLinkAccordingName(text("Own"));
    ASSERT_NE(copied, nullptr);
    EXPECT_EQ(copied->getFrames().at(0), find(old->set, "Front1:Hip"));
}

TEST_F(Transfer, aFrameOfTheTargetThatChangesItsLinkIsTold)
{
    FrameLink *const chests = back->set->newLink(text("Chests"));
    chests->linkFrame(front->chest);
    chests->linkFrame(back->chest);
    FrameLink *const present = old->set->newLink(text("Present"));
    present->linkFrame(old->chest);
    // Only Back goes; the link finds the Front that was there.
    const TransferReceipt receipt = transferPieces(from, {back->group}, to);
    EXPECT_EQ(told(receipt.framesThatChangedLinks), "Garment/Front:Chest");
    EXPECT_TRUE(present->getFrames().isEmpty());
    EXPECT_EQ(told(receipt.linksLeftBehind), "");
}

TEST_F(Transfer, aSetWithNothingOnThePiecesTakesNoPart)
{
    TiedPiece sleeve(from, "Sleeve", "Arm");
    FrameSet *const arm = new FrameSet(text("Arm"), to.framesManager());
    to.framesManager()->addFrameSet(arm, -1);
    const TransferReceipt receipt = transferPieces(from, {front->group}, to);
    EXPECT_EQ(told(receipt.setsDeleted), "");
    EXPECT_TRUE(to.framesManager()->getFrameSets().contains(arm));
    EXPECT_TRUE(arm->getFrameCenters().isEmpty());
}

TEST_F(Transfer, anElementOnTwoPiecesGoesWithEitherOfThem)
{
    CDbGroupObject *const twin = from.copyPiece(front->group, text("Twin"));
    const TransferReceipt receipt = transferPieces(from, {twin}, to);
    EXPECT_EQ(told(receipt.piecesWithoutSkeleton), "");
    EXPECT_EQ(receipt.pieces[0]->firstGabarit()->controlSkeleton()->getFrameSet(), old->set);
}

TEST_F(Transfer, worksWithinOneDocumentIntoANewSet)
{
    TransferWish wish;
    EXPECT_TRUE(transferPieces(from, {front->group}, from, wish).isRefused());
    wish.merges = false;
    const TransferReceipt receipt = transferPieces(from, {front->group}, from, wish);
    EXPECT_EQ(told(receipt.setsMade), "Garment 1");
    EXPECT_EQ(receipt.pieces[0]->name(), text("Front1"));
    FrameFrame *const chest = find(from.framesManager()->getFrameSets().at(1), "Front:Chest");
    EXPECT_TRUE(widen(chest, 2.0));
    EXPECT_EQ(shown(chest), "42.00");
    EXPECT_EQ(shown(front->chest), "40.00");
}

TEST_F(Transfer, valuesThatDoNotComeAlongAreReadFromThePiece)
{
    TransferWish wish;
    wish.withValues = false;
    transferPieces(from, {front->group}, to, wish);
    EXPECT_EQ(measures(find(old->set, "Front1:Chest")), measures(front->chest));
}

TEST_F(Transfer, theResultOutlivesItsSource)
{
    auto source = std::make_unique<PatternDocument>();
    source->setSizes(documents::sevenNames(), 4);
    TiedPiece piece(*source, "Sleeve", "Garment");
    give(piece.chest, "Measure(Sleeve:Hip)");
    transferPieces(*source, {piece.group}, to);
    source.reset();
    FrameFrame *const chest = find(old->set, "Sleeve:Chest");
    EXPECT_EQ(shown(chest), "40.00");
    EXPECT_TRUE(widen(find(old->set, "Sleeve:Hip"), 1.0));
    old->set->reevaluate(Reevaluate_Apply);
    EXPECT_EQ(shown(chest), "41.00");
}

TEST_F(Transfer, aMappingInForceInTheTargetGoesOnBeingNotified)
{
    const TransferReceipt first = transferPieces(from, {front->group}, to);
    const RelayBaton baton = to.framesManager()->setGroupMapping({{old->group, first.pieces[0]}});
    const TransferReceipt second = transferPieces(from, {back->group}, to);
    EXPECT_EQ(told(second.piecesWithoutSkeleton), "");
    EXPECT_TRUE(widen(find(old->set, "Front1:Chest"), 2.0));
    EXPECT_TRUE(to.framesManager()->groupHasChanged(old->group)); // notified from the side of the value
    EXPECT_FALSE(to.framesManager()->groupHasChanged(first.pieces[0]));
    EXPECT_EQ(to.framesManager()->getGroupMapping()->size(), 1u);
}

TEST_F(Transfer, refusesWhatCannotBeDoneAndChangesNothing)
{
    CDbGroupObject stranger;
    PatternDocument otherSizes;
    otherSizes.setSizes({text("S"), text("M")}, 1);
    EXPECT_EQ(transferPieces(from, {}, to).refusal, text("No piece is selected."));
    EXPECT_TRUE(transferPieces(from, {nullptr}, to).isRefused());
    EXPECT_TRUE(transferPieces(from, {&stranger}, to).isRefused());
    EXPECT_TRUE(transferPieces(from, {front->group, front->group}, to).isRefused());
    EXPECT_TRUE(transferPieces(from, {front->group}, otherSizes).isRefused());
    {
        const RelayBaton baton = from.framesManager()->setGroupMapping({{front->group, back->group}});
        EXPECT_TRUE(transferPieces(from, {front->group}, to).isRefused());
    }
    EXPECT_EQ(to.pieces().size(), 1u);
    EXPECT_EQ(old->set->getFrameCenters().count(), 1);
    EXPECT_FALSE(transferPieces(from, {front->group}, to).isRefused());
}

TEST_F(Transfer, anExceptionLeavesNoPieceThatPointsIntoTheSource)
{
    front->chest->setFormulaMeasurement(new TreeEquations); // an empty root cannot be bound
    EXPECT_THROW(transferPieces(from, {front->group}, to), AssertionError);
    EXPECT_EQ(to.pieces().size(), 1u);
    EXPECT_EQ(front->center->name(), text("Front"));
    EXPECT_TRUE(from.framesManager()->getGroupMapping()->empty());
}

} // namespace
