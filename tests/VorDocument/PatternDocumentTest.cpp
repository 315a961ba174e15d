// Ownership, sizes, lock states and copies of pieces.

#include "TestDocument.h"

#include <gtest/gtest.h>

using namespace VorSystem;
using documents::Elements;
using documents::enter;
using documents::text;

namespace
{

// Seven sizes, the nest in the middle; one rectangle with a skeleton.
class PatternDocumentTest : public testing::Test
{
protected:
    PatternDocumentTest()
    {
        document.setSizes(documents::sevenNames(), 4);
        piece = enter(document, support::rectangle(), "Front");
        elements.tieTo(document, piece);
    }

    PatternDocument document;
    Elements elements{document};
    CDbGroupObject *piece = nullptr;
};

TEST(EmptyPatternDocument, hasManagerAndPlanButNoGradation)
{
    PatternDocument document;

    EXPECT_EQ(document.gradationData(), nullptr);
    ASSERT_NE(document.framesManager(), nullptr);
    EXPECT_EQ(GestFrames::managerFramesDocument(&document)->document(), &document);
    ASSERT_NE(static_cast<const Document &>(document).plan(), nullptr);
    EXPECT_TRUE(document.pieces().empty());
}

TEST(EmptyPatternDocument, takesOnlySizesThatCanBeTold)
{
    PatternDocument document;
    const QStringList three = {text("S"), text("M"), text("L")};

    EXPECT_FALSE(document.setSizes({text("S"), text("S")}, 1));
    EXPECT_FALSE(document.setSizes({text("S"), text(" ")}, 1));
    EXPECT_FALSE(document.setSizes(three, 4));
    EXPECT_FALSE(document.setSizes(three, -1));
    EXPECT_EQ(document.gradationData(), nullptr);

    EXPECT_TRUE(document.setSizes(three, 2));
    EXPECT_EQ(document.gradationData()->gradationNum(), 3);
    EXPECT_EQ(document.gradationData()->mediumIndex(), 2);
    EXPECT_EQ(document.sizeName(3), text("L"));
    EXPECT_EQ(document.sizeName(4), QString());

    EXPECT_TRUE(document.setSizes(three, 0)); // sizes without a nest count as one
    EXPECT_FALSE(document.gradationData()->isGradationNestDefined());
    EXPECT_TRUE(document.setSizes({}, 0));
    EXPECT_EQ(document.gradationData(), nullptr);
}

TEST_F(PatternDocumentTest, newSizesFitTheValueListsOfTheElements)
{
    document.setSizes({text("S"), text("M"), text("L")}, 2);

    EXPECT_EQ(elements.chest->getMeasureBySizes()->mValues.size(), 3);
}

TEST_F(PatternDocumentTest, anElementIsDefinedWhileItsPieceIsThere)
{
    EXPECT_NE(elements.chest->objectControlCorresponding(), nullptr);

    EXPECT_TRUE(document.removePiece(piece));

    EXPECT_EQ(elements.chest->objectControlCorresponding(), nullptr);
    EXPECT_FALSE(document.removePiece(piece));
    EXPECT_FALSE(document.removePiece(nullptr));
}

TEST_F(PatternDocumentTest, aCopyKeepsIdentitiesAndBringsItsSkeleton)
{
    CDbGroupObject *copy = document.copyPiece(piece, text("Back"));

    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->name(), text("Back"));
    EXPECT_FALSE(copy->isClone());
    const GabaritObject *from = piece->firstGabarit();
    GabaritObject *to = copy->firstGabarit();
    ASSERT_EQ(to->contourCount(), from->contourCount());
    for (std::size_t place = 0; place < from->contourVectors().size(); ++place) {
        EXPECT_EQ(to->contourVectors()[place]->Num_ID(), from->contourVectors()[place]->Num_ID());
        EXPECT_NE(to->contourVectors()[place], from->contourVectors()[place]);
    }
    ASSERT_NE(to->controlSkeleton(), nullptr);
    EXPECT_NE(to->controlSkeleton()->framePointingToTheFrameFrame(elements.chest), nullptr);

    CDbGroupObject stranger;
    EXPECT_EQ(document.copyPiece(&stranger, text("Nobody")), nullptr);
    EXPECT_EQ(document.copyPiece(nullptr, text("Nobody")), nullptr);
}

TEST_F(PatternDocumentTest, lockStateTellsLockedPiecesAndClonesOfThem)
{
    const t_Plan &plan = document.plan();
    CDbGroupObject *clone = document.clonePiece(piece, text("Clone"));
    const auto states = [&] {
        QStringList told;
        for (BaseFrame *element :
             std::initializer_list<BaseFrame *>{elements.center, elements.chest, elements.waist,
                                                elements.link, elements.segment, elements.spec})
            told << QString::number(plan.lockState(element));
        return told.join(text(" ")).toStdString();
    };

    //                    center, chest, waist (untied), link (through chest), segment, spec
    EXPECT_EQ(states(), "0 0 0 0 0 0");
    piece->setLocked(true);
    EXPECT_EQ(states(), "1 1 0 1 1 0");
    document.removeSkeleton(piece->firstGabarit()->controlSkeleton());
    EXPECT_EQ(states(), "2 2 0 2 2 0");
    clone->setLocked(true);
    EXPECT_EQ(states(), "1 1 0 1 1 0");
    clone->setLocked(false);
    piece->setLocked(false);
    EXPECT_EQ(states(), "0 0 0 0 0 0");
    EXPECT_EQ(plan.lockState(nullptr), 0);
}

TEST_F(PatternDocumentTest, onlyOneSkeletonForAGabaritOfTheDocument)
{
    GabaritObject *gabarit = piece->firstGabarit();
    EXPECT_EQ(document.newSkeleton(gabarit), nullptr);
    EXPECT_EQ(document.newSkeleton(nullptr), nullptr);

    const support::Piece stranger = support::rectangle();
    EXPECT_EQ(document.newSkeleton(stranger.gabarit), nullptr);

    EXPECT_TRUE(document.removeSkeleton(gabarit->controlSkeleton()));
    EXPECT_EQ(gabarit->controlSkeleton(), nullptr);
    EXPECT_FALSE(document.removeSkeleton(nullptr));
    EXPECT_NE(document.newSkeleton(gabarit), nullptr);
}

TEST_F(PatternDocumentTest, aDetachedSetMayBeDeleted)
{
    document.detachSkeletons(elements.set);

    ControlSkeleton *skeleton = piece->firstGabarit()->controlSkeleton();
    ASSERT_NE(skeleton, nullptr);
    EXPECT_TRUE(skeleton->isEmptySkeleton());
    document.framesManager()->removeFrameSet(elements.set);
    delete elements.set;
    EXPECT_FALSE(document.framesManager()->areSetPartiallyDefined());
}

TEST_F(PatternDocumentTest, swappedDocumentsKeepTheirPiecesAndElements)
{
    PatternDocument other;
    other.setName(text("Other"));

    document.swap(other);

    EXPECT_EQ(document.name(), text("Other"));
    EXPECT_TRUE(document.pieces().empty());
    EXPECT_EQ(other.pieces().front(), piece);
    EXPECT_EQ(other.framesManager()->document(), &other);
    EXPECT_EQ(document.framesManager()->document(), &document);
    EXPECT_NE(elements.chest->objectControlCorresponding(), nullptr);
}

} // namespace
