// Control objects in their stored form: vectors by identity, elements by name, and what a reading that fails
// leaves in the skeleton.

#include "JsonTexts.h"

#include <functional>
#include <support/ControlledPiece.h>

using namespace VorSystem;
using jsontest::object;
using jsontest::text;

namespace
{

// The rectangle with its axis, two chords and a segment, and a copy of the piece that has no skeleton yet.
class ControlJson : public testing::Test
{
protected:
    support::RectangleUnderControl mPiece;
    ControlFrame *mHem = mPiece.chord("Hem", 0);
    ControlFrame *mChest = mPiece.chord("Chest", 3);
    ControlSegment *mSide =
        mPiece.segment("Side", mPiece.right(1), mPiece.right(4), FrameSegment::Displace_AlongContour);
    std::unique_ptr<CDbGroupObject> mCopy{mPiece.group()->copy()};
    std::unique_ptr<ControlSkeleton> mRead =
        std::make_unique<ControlSkeleton>(mCopy.get(), mCopy->firstGabarit());

    GestFrames *manager() { return mPiece.document().framesManager(); }
    XJsonObject stored() const { return mPiece.skeleton()->toJson(); }

    static std::string id(const CDbPointVOR *vector)
    {
        return "{'id':" + std::to_string(vector->Num_ID().number()) + "}";
    }
    // The stored center on the vectors of the axis, with other keys for its element.
    std::string center(const std::string &element)
    {
        return "'center':{'base':{'points':[" + id(mPiece.axis->getVectorContour(1)) + "," +
               id(mPiece.axis->getVectorContour(2)) + "],'direction':true}" + element + "}";
    }
    std::string axis()
    {
        return center(",'set_name':'Set','center_name':'Center','right_regions':{'region':2}");
    }
    static std::string frame(const std::string &points, const std::string &rest = {})
    {
        return "{'base':{'points':" + points + "}" + rest + "}";
    }

    void read(const std::string &skeleton) { mRead->fromJson(object(skeleton.c_str()), manager()); }
    std::string failure(const std::string &skeleton)
    {
        const std::string said = jsontest::thrown([&] { read(skeleton); });
        return said.substr(0, said.find(" | ", said.find(" | ") + 1)); // without line and function
    }
    void startAgain()
    {
        mRead.reset();
        mRead = std::make_unique<ControlSkeleton>(mCopy.get(), mCopy->firstGabarit());
    }
};

const char *const kUnresolvedCenter = "Invalid Operation | src\\Json\\ControlCenterJson";
const char *const kUnresolvedFrame = "Invalid Operation | src\\Json\\ControlFrameJson";
const char *const kUnresolvedSegment = "Invalid Operation | src\\Json\\ControlSegmentJson";
const char *const kUnknownVector = "Unexpected Data | src\\Json\\ControlBaseJson";

TEST_F(ControlJson, emptySkeletonWritesTwoEmptyListsAndNoCenter)
{
    EXPECT_EQ(text(mRead->toJson()), "{'frames':[],'segments':[]}");
    read("{}");
    EXPECT_EQ(text(mRead->toJson()), "{'frames':[],'segments':[]}");
}

TEST_F(ControlJson, skeletonIsStoredKeyByKey)
{
    const auto base = [](const ControlBase *control) {
        return "'base':{'direction':" + std::string(control->getContourDirection1To2() ? "true" : "false") +
               ",'points':[" + id(control->getVectorContour(1)) + "," + id(control->getVectorContour(2)) +
               "]}";
    };
    EXPECT_EQ(text(stored()),
              "{'center':{" + base(mPiece.axis) +
                  ",'center_name':'Center','right_regions':{'region':2},'set_name':'Set'},"
                  "'frames':[{" +
                  base(mHem) + ",'frame_name':'Hem','is_agrees_link':true,'set_name':'Set'},{" +
                  base(mChest) +
                  ",'frame_name':'Chest','is_agrees_link':true,'set_name':'Set'}],'segments':[{" +
                  base(mSide) + ",'segment_name':'Side','set_name':'Set'}]}");
}

TEST_F(ControlJson, controlsWithoutAnElementAreStoredKeyByKey)
{
    const std::string base = "{'direction':false,'points':[{},{}]}";
    EXPECT_EQ(text((new ControlCenter(mRead.get()))->toJson()), "{'base':" + base + "}");
    EXPECT_EQ(text((new ControlFrame(mRead.get()))->toJson()), "{'base':" + base + ",'is_agrees_link':true}");
    EXPECT_EQ(text((new ControlSegment(mRead.get()))->toJson()), "{'base':" + base + "}");
    EXPECT_EQ(text(mRead->toJson()), "{'center':{'base':" + base + "},'frames':[{'base':" + base +
                                         ",'is_agrees_link':true}],'segments':[{'base':" + base + "}]}");
}

TEST_F(ControlJson, selectionIsNoPartOfTheForm)
{
    mPiece.skeleton()->adjustSelection(false);
    const std::string unselected = text(stored());
    mPiece.skeleton()->adjustSelection(true);
    mChest->setRegionSelection(true);
    EXPECT_EQ(text(stored()), unselected);
}

TEST_F(ControlJson, pointsAndBothEndsOfAChordMayBeOneVector)
{
    read("{" + axis() + ",'frames':[" + frame("[" + id(mPiece.right(2)) + "," + id(mPiece.right(2)) + "]") +
         "]}");
    EXPECT_TRUE(mRead->getFrameLists().at(0)->isMeasureZero());
}

TEST_F(ControlJson, skeletonReadsBackOntoACopyOfItsPiece)
{
    mChest->setAgreesLink(false);
    mRead->fromJson(stored(), manager());
    EXPECT_EQ(text(mRead->toJson()), text(stored()));
    EXPECT_EQ(mRead->getFrameCenter()->Get_Frame_Centre(), mPiece.frameCenter());
    EXPECT_EQ(mRead->getFrameLists().at(1)->getFrameFrame(), mChest->getFrameFrame());
    EXPECT_EQ(mRead->getSegmentLists().at(0)->getFrameSegment(), mSide->getFrameSegment());
    // The vectors are those of the copy.
    EXPECT_TRUE(mCopy->holds(mRead->getFrameLists().at(0)->getVectorContour1()));
}

TEST_F(ControlJson, measuresOnTheCopyAreThoseOfThePiece)
{
    mRead->fromJson(stored(), manager());
    for (int i = 0; i < 2; ++i) {
        ControlFrame *const before = mPiece.skeleton()->getFrameLists().at(i);
        ControlFrame *const after = mRead->getFrameLists().at(i);
        for (short size = -1; size < 7; ++size)
            EXPECT_NEAR(after->getMeasures(size), before->getMeasures(size), 1e-9);
    }
}

TEST_F(ControlJson, halfChordKeepsItsEmptySecondVector)
{
    ControlFrame *const half = mPiece.halfChord("Half", 5);
    ASSERT_EQ(half->getVectorContour(2), nullptr);
    const XJsonObject form = half->toJson();
    const XJsonArray points =
        form.value(QStringLiteral("base")).toObject().value(QStringLiteral("points")).toArray();
    EXPECT_EQ(points.size(), 2);
    EXPECT_TRUE(points.at(1).isObject() && points.at(1).toObject().isEmpty());

    mRead->fromJson(stored(), manager());
    EXPECT_EQ(mRead->getFrameLists().at(2)->getVectorContour(2), nullptr);
    EXPECT_NE(mRead->getFrameLists().at(2)->getVectorContour(1), nullptr);
}

TEST_F(ControlJson, pointsGoToTheVectors)
{
    const std::string a = id(mPiece.at(1)), b = id(mPiece.at(2)), c = id(mPiece.at(4));
    const int first = mPiece.at(1)->Num_ID().number(), second = mPiece.at(2)->Num_ID().number(),
              third = mPiece.at(4)->Num_ID().number();
    const struct {
        std::string points;
        int vector1, vector2; // identities, 0 for none
    } rows[] = {
        {"[" + a + "," + b + "]", first, second},
        {"[" + a + "," + b + "," + c + "]", first, third}, // the last of many stays
        {"[" + a + "]", first, 0},
        {"[" + a + ",{}]", first, 0},
        {"[{}," + a + "]", 0, first},
        {"[" + a + ",7," + b + "]", first, second}, // what is no object reads as an empty one
        {"[" + a + "," + b + ",{}]", first, second},
        {"[]", 0, 0},
        {"null", 0, 0},
        {"'none'", 0, 0},
    };
    for (const auto &row : rows) {
        startAgain();
        // The center keeps whatever its points say.
        read("{'center':{'base':{'points':" + row.points + "}}}");
        const CDbPointVOR *const one = mRead->getFrameCenter()->getVectorContour1();
        const CDbPointVOR *const two = mRead->getFrameCenter()->getVectorContour2();
        EXPECT_EQ(one == nullptr ? 0 : one->Num_ID().number(), row.vector1) << row.points;
        EXPECT_EQ(two == nullptr ? 0 : two->Num_ID().number(), row.vector2) << row.points;
    }
}

TEST_F(ControlJson, identityThatThePieceLacksStopsTheReading)
{
    for (const char *unknown : {"{'id':100000}", "{'id':0}", "{'id':-1}", "{'id':'1'}", "{'other':1}"}) {
        startAgain();
        EXPECT_EQ(failure("{" + axis() + ",'frames':[" + frame("[" + std::string(unknown) + "]") + "]}"),
                  kUnknownVector)
            << unknown;
        // What was read before stays, and the one that failed too, empty.
        EXPECT_NE(mRead->getFrameCenter(), nullptr);
        EXPECT_EQ(mRead->getFrameLists().count(), 1);
    }
}

TEST_F(ControlJson, identityIsSoughtEvenWhereALaterOneReplacesIt)
{
    EXPECT_EQ(failure("{" + axis() + ",'frames':[" +
                      frame("[" + id(mPiece.at(1)) + ",{'id':100000}," + id(mPiece.at(2)) + "]") + "]}"),
              kUnknownVector);
}

TEST_F(ControlJson, withoutAGroupThereAreNoVectors)
{
    mRead->setGroup(nullptr);
    mRead->fromJson(stored(), manager());
    EXPECT_EQ(mRead->getFrameCenter()->getVectorContour1(), nullptr);
    EXPECT_TRUE(mRead->getFrameLists().isEmpty());
    EXPECT_TRUE(mRead->getSegmentLists().isEmpty());
}

TEST_F(ControlJson, controlsThatLostTheirPieceVanish)
{
    const std::string a = id(mPiece.at(1)), b = id(mPiece.at(2));
    read("{" + axis() + ",'frames':[" + frame("[{},{}]") + "," + frame("[" + a + "," + b + "]") + "," +
         frame("[]") + "],'segments':[" + frame("[" + a + ",{}]") + "," + frame("[{}," + b + "]") + "," +
         frame("[" + a + "," + b + "]") + "," + frame("[{},{}]") + "]}");
    EXPECT_EQ(mRead->getFrameLists().count(), 1);
    EXPECT_EQ(mRead->getSegmentLists().count(), 1);
}

TEST_F(ControlJson, controlThatLostItsPieceButNamesAnUnknownElementIsAnError)
{
    EXPECT_EQ(failure("{" + axis() + ",'frames':[" + frame("[{},{}]", ",'set_name':'gone'") + "]}"),
              kUnresolvedFrame);
}

TEST_F(ControlJson, segmentThatLostItsPieceButNamesAnUnknownElementIsAnErrorToo)
{
    EXPECT_EQ(failure("{'segments':[" + frame("[]", ",'set_name':'gone'") + "]}"), kUnresolvedSegment);
}

TEST_F(ControlJson, vectorsAreSoughtBeforeElements)
{
    const std::string unknown = frame("[{'id':100000}]", ",'set_name':'gone'");
    EXPECT_EQ(failure("{" + axis() + ",'frames':[" + unknown + "]}"), kUnknownVector);
    startAgain();
    EXPECT_EQ(failure("{'segments':[" + unknown + "]}"), kUnknownVector);
    startAgain();
    EXPECT_EQ(failure("{'center':" + unknown + ",'frames':[" + frame("[]", ",'set_name':'gone'") + "]}"),
              kUnknownVector);
}

TEST_F(ControlJson, whatWasReadBeforeAFailureStaysAndNothingFollows)
{
    const std::string whole = frame("[" + id(mPiece.left(2)) + "," + id(mPiece.right(2)) + "]");
    const std::string unknown = frame("[" + id(mPiece.left(3)) + ",{'id':100000}]");
    EXPECT_EQ(failure("{" + axis() + ",'frames':[" + whole + "],'segments':[" + whole + "," + unknown + "," +
                      whole + "]}"),
              kUnknownVector);
    EXPECT_EQ(mRead->getFrameCenter()->Get_Frame_Centre(), mPiece.frameCenter());
    EXPECT_EQ(mRead->getFrameLists().count(), 1);
    ASSERT_EQ(mRead->getSegmentLists().count(), 2);
    // The vector before the unknown one was taken already.
    EXPECT_EQ(mRead->getSegmentLists().at(1)->getVectorContour1()->Num_ID(), mPiece.left(3)->Num_ID());
    EXPECT_EQ(mRead->getSegmentLists().at(1)->getVectorContour2(), nullptr);
}

TEST_F(ControlJson, elementIsNotSoughtWithoutASet)
{
    const std::string points = "[" + id(mPiece.left(2)) + "," + id(mPiece.right(2)) + "]";
    read("{" + axis() + ",'frames':[" + frame(points, ",'set_name':'','frame_name':'Hem'") +
         "],'segments':[" + frame(points, ",'segment_name':'gone'") + "]}");
    EXPECT_EQ(mRead->getFrameLists().at(0)->getFrameFrame(), nullptr);
    EXPECT_EQ(mRead->getSegmentLists().at(0)->getFrameSegment(), nullptr);
}

TEST_F(ControlJson, directionIsTakenAsItStands)
{
    for (const char *direction : {"true", "false", "1", "null"}) {
        startAgain();
        read("{" + axis() + ",'segments':[{'base':{'points':[" + id(mPiece.at(1)) + "," + id(mPiece.at(2)) +
             "],'direction':" + direction + "}}]}");
        EXPECT_EQ(mRead->getSegmentLists().at(0)->getContourDirection1To2(), direction == std::string("true"))
            << direction;
    }
}

TEST_F(ControlJson, centerWithoutAnElementKeepsItsRegion)
{
    read("{" + center(",'set_name':'','right_regions':{'region':1}") + "}");
    EXPECT_EQ(mRead->getFrameCenter()->Get_Frame_Centre(), nullptr);
    EXPECT_EQ(mRead->getFrameCenter()->getRightRegions()->region(), 2);
    EXPECT_FALSE(mRead->getFrameCenter()->toJson().contains(QStringLiteral("right_regions")));
}

TEST_F(ControlJson, regionIsReadAsStored)
{
    // stored                                 region
    const std::pair<const char *, int> rows[] = {
        {"", 0}, // a missing one reads as 0, which is not that of a new center
        {",'right_regions':{}", 0},
        {",'right_regions':{'region':1}", 1},
        {",'right_regions':{'region':7}", 7},
        {",'right_regions':{'region':-1}", -1},
        {",'right_regions':{'region':1.5}", 0},
        {",'right_regions':3", 0},
    };
    for (const auto &row : rows) {
        startAgain();
        read("{" + center(std::string(",'set_name':'Set','center_name':'Center'") + row.first) + "}");
        EXPECT_EQ(mRead->getFrameCenter()->getRightRegions()->region(), row.second) << row.first;
        const short identifier = mRead->getFrameCenter()->getRightRegions()->getIdentifierByRegion(
            mCopy->firstGabarit(), mRead->getFrameCenter()->getVectorContour(1),
            mRead->getFrameCenter()->getVectorContour(2),
            mCopy->vectorOfIdentity(mPiece.at(8)->Num_ID().number()));
        EXPECT_TRUE(identifier == 1 || identifier == 2) << row.first;
    }
}

TEST_F(ControlJson, agreementWithTheLinkIsReadWithAndWithoutAnElement)
{
    const std::string points = "[" + id(mPiece.left(2)) + "," + id(mPiece.right(2)) + "]";
    for (const char *element : {"", ",'set_name':'Set','frame_name':'Chest'"}) {
        for (const char *agrees : {"", ",'is_agrees_link':true", ",'is_agrees_link':false"}) {
            startAgain();
            read("{" + axis() + ",'frames':[" + frame(points, std::string(element) + agrees) + "]}");
            EXPECT_EQ(mRead->getFrameLists().at(0)->getAgreesLink(),
                      agrees == std::string(",'is_agrees_link':true"));
        }
    }
}

TEST_F(ControlJson, unresolvedElementsAreErrors)
{
    mPiece.set()->newLink(QStringLiteral("L"));
    mPiece.set()->newSegment(QStringLiteral("Center")); // hidden by the center of that name
    const std::string points = "[" + id(mPiece.left(2)) + "," + id(mPiece.right(2)) + "]";
    const auto withFrame = [&](const std::string &element) {
        return "{" + axis() + ",'frames':[" + frame(points, element) + "]}";
    };
    const auto withSegment = [&](const std::string &element) {
        return "{'segments':[" + frame(points, element) + "]}";
    };
    const std::pair<std::string, std::string> rows[] = {
        {"{" + center(",'set_name':'none','center_name':'Center'") + "}", kUnresolvedCenter},
        {"{" + center(",'set_name':'Set'") + "}", kUnresolvedCenter},
        {"{" + center(",'set_name':'Set','center_name':'L'") + "}", kUnresolvedCenter},
        {"{" + center(",'set_name':'Set','center_name':'Center:Hem'") + "}", kUnresolvedCenter},
        {"{" + center(",'set_name':'Set','center_name':'Hem'") + "}", kUnresolvedCenter},
        {withFrame(",'set_name':'none','frame_name':'Hem'"), kUnresolvedFrame},
        {withFrame(",'set_name':'Set','frame_name':'none'"), kUnresolvedFrame},
        {withFrame(",'set_name':'Set'"), kUnresolvedFrame},
        {withSegment(",'set_name':'none','segment_name':'Side'"), kUnresolvedSegment},
        {withSegment(",'set_name':'Set','segment_name':'none'"), kUnresolvedSegment},
        {withSegment(",'set_name':'Set','segment_name':'L'"), kUnresolvedSegment},
        {withSegment(",'set_name':'Set','segment_name':'Center'"), kUnresolvedSegment},
        {withSegment(",'set_name':'Set','segment_name':'Side'"), ""},
        {withFrame(",'set_name':' S E T ','frame_name':'hem'"), ""},
    };
    for (const auto &row : rows) {
        startAgain();
        EXPECT_EQ(failure(row.first), row.second) << row.first;
    }
}

TEST_F(ControlJson, frameThatNamesItsElementNeedsTheCenterOfItsSkeleton)
{
    const std::string points = "[" + id(mPiece.left(2)) + "," + id(mPiece.right(2)) + "]";
    const std::string frames = "'frames':[" + frame(points, ",'set_name':'Set','frame_name':'Hem'") + "]}";
    EXPECT_EQ(failure("{" + frames), kUnresolvedFrame);
    startAgain();
    EXPECT_EQ(failure("{" + center("") + "," + frames), kUnresolvedFrame); // a center without an element
}

// A frame is stored by its bare name: it is sought on the center of the skeleton, whatever center it is of.
TEST_F(ControlJson, frameOfAnotherCenterBecomesTheOneOfThatNameOrFails)
{
    FrameCenter *const back = mPiece.set()->newCenter(QStringLiteral("Back"));
    FrameFrame *const twin = mPiece.set()->newFrame(QStringLiteral("Hem"), back);
    mPiece.set()->newFrame(QStringLiteral("Hip"), back);
    new ControlFrame(mPiece.left(1), mPiece.right(1), mPiece.skeleton(), twin);
    mRead->fromJson(stored(), manager());
    EXPECT_EQ(mRead->getFrameLists().at(2)->getFrameFrame(), mHem->getFrameFrame());

    startAgain();
    EXPECT_EQ(failure("{" + axis() + ",'frames':[" +
                      frame("[" + id(mPiece.left(1)) + "]", ",'set_name':'Set','frame_name':'Hip'") + "]}"),
              kUnresolvedFrame);
}

TEST_F(ControlJson, frameIsSoughtInTheSetThatItNames)
{
    auto *const other = new FrameSet(QStringLiteral("Other"), manager());
    manager()->addFrameSet(other, -1);
    const std::string frames =
        ",'frames':[" + frame("[" + id(mPiece.left(1)) + "]", ",'set_name':'Other','frame_name':'Hem'") +
        "]}";
    EXPECT_EQ(failure("{" + axis() + frames), kUnresolvedFrame);
    FrameFrame *const hem =
        other->newFrame(QStringLiteral("Hem"), other->newCenter(QStringLiteral("Center")));
    startAgain();
    read("{" + axis() + frames);
    EXPECT_EQ(mRead->getFrameLists().at(0)->getFrameFrame(), hem);
}

// Stored, and not found again: the colon splits what is one name.
TEST_F(ControlJson, centerWithAColonInItsNameIsNotFoundAgain)
{
    mPiece.frameCenter()->setName(QStringLiteral("Cen:ter"));
    const XJsonObject form = stored();
    EXPECT_EQ(form.value(QStringLiteral("center")).toObject().value(QStringLiteral("center_name")).toString(),
              QStringLiteral("Cen:ter"));
    EXPECT_THROW(mRead->fromJson(form, manager()), AssertionError);
}

TEST_F(ControlJson, framesWithoutElementsNeedNoCenter)
{
    const std::string chord = frame("[" + id(mPiece.left(2)) + "," + id(mPiece.right(2)) + "]");
    const std::string back = frame("[" + id(mPiece.right(3)) + "," + id(mPiece.left(3)) + "]");
    read("{'frames':[" + chord + "," + back + "]}");
    EXPECT_EQ(mRead->getFrameLists().count(), 2);
    startAgain();
    read("{" + center("") + ",'frames':[" + chord + "," + back + "]}");
    EXPECT_EQ(mRead->getFrameLists().count(), 2);
}

TEST_F(ControlJson, laterFramesTakeTheSideOfTheFirst)
{
    read("{" + axis() + ",'frames':[" + frame("[" + id(mPiece.left(2)) + "," + id(mPiece.right(2)) + "]") +
         "," + frame("[" + id(mPiece.right(3)) + "," + id(mPiece.left(3)) + "]") + "]}");
    ControlFrame *const second = mRead->getFrameLists().at(1);
    EXPECT_EQ(second->getVectorContour(1)->Num_ID(), mPiece.left(3)->Num_ID());
    EXPECT_TRUE(second->getContourDirection1To2()); // the stored false, inverted with the swap
}

// Copying a skeleton leaves every chord as it is; reading turns it to the side of the first one.
TEST_F(ControlJson, chordsThatACopyLeftAsTheyWereAreTurnedByTheFirstReading)
{
    ControlFrame *const third = mPiece.chord("Waist", 2);
    third->setVectorContour(1, mPiece.left(2)); // the others begin on the right
    third->setVectorContour(2, mPiece.right(2));
    mRead.reset();
    mRead = std::make_unique<ControlSkeleton>(mCopy.get(), mCopy->firstGabarit(), mPiece.skeleton());
    const XJsonObject copied = mRead->toJson();
    EXPECT_EQ(text(copied), text(stored()));

    startAgain();
    mRead->fromJson(copied, manager());
    EXPECT_NE(text(mRead->toJson()), text(copied));
    EXPECT_EQ(mRead->getFrameLists().at(2)->getVectorContour(1)->Num_ID(), mPiece.right(2)->Num_ID());
    EXPECT_NE(mRead->getFrameLists().at(2)->getContourDirection1To2(), third->getContourDirection1To2());

    const XJsonObject turned = mRead->toJson();
    startAgain();
    mRead->fromJson(turned, manager());
    EXPECT_EQ(text(mRead->toJson()), text(turned));
}

// Deliberate: the rule of the common side asks nothing of the second vector, so that a half chord on the
// other side comes out with its only vector in the second place. Where a half is doubled there are no sides.
TEST_F(ControlJson, halfChordOnTheOtherSideIsTurnedAsAWholeOne)
{
    const std::string frames = ",'frames':[" +
                               frame("[" + id(mPiece.left(2)) + "," + id(mPiece.right(2)) + "]") + "," +
                               frame("[" + id(mPiece.right(3)) + ",{}]") + "]}";
    read("{" + axis() + frames);
    EXPECT_EQ(mRead->getFrameLists().at(1)->getVectorContour(1), nullptr);
    EXPECT_EQ(mRead->getFrameLists().at(1)->getVectorContour(2)->Num_ID(), mPiece.right(3)->Num_ID());

    startAgain();
    mPiece.frameCenter()->setCharacteristic(FrameCenter::Characteristic_OneSideDoubled);
    read("{" + axis() + frames);
    EXPECT_EQ(mRead->getFrameLists().at(1)->getVectorContour(1)->Num_ID(), mPiece.right(3)->Num_ID());
}

TEST_F(ControlJson, frameWithoutAFirstVectorStopsTheReadingAndStays)
{
    const std::string whole = frame("[" + id(mPiece.left(2)) + "," + id(mPiece.right(2)) + "]");
    const std::string second = frame("[{}," + id(mPiece.right(3)) + "]");
    EXPECT_NE(failure("{" + axis() + ",'frames':[" + whole + "," + second + "," + whole + "]}"), "");
    EXPECT_EQ(mRead->getFrameLists().count(), 2);
    startAgain();
    EXPECT_NE(failure("{" + axis() + ",'frames':[" + second + "," + whole + "]}"), "");
    EXPECT_EQ(mRead->getFrameLists().count(), 2);
}

TEST_F(ControlJson, managerIsNeededAsSoonAsThereIsAControl)
{
    for (const char *skeleton : {"{'center':{}}", "{'frames':[{}]}", "{'segments':[{}]}"}) {
        startAgain();
        EXPECT_THROW(mRead->fromJson(object(skeleton), nullptr), AssertionError) << skeleton;
    }
}

TEST_F(ControlJson, managerIsAskedForBeforeAnythingIsRead)
{
    const auto refusal = [&](ControlBase *control, const auto &reading) {
        const std::string said = jsontest::thrown(reading);
        EXPECT_EQ(control->getVectorContour(1), nullptr);
        return said.substr(0, said.find(" | ", said.find(" | ") + 1));
    };
    const XJsonObject form = object(frame("[" + id(mPiece.at(1)) + "," + id(mPiece.at(2)) + "]").c_str());
    auto *const center = new ControlCenter(mRead.get());
    auto *const chord = new ControlFrame(mRead.get());
    auto *const segment = new ControlSegment(mRead.get());
    EXPECT_EQ(refusal(center, [&] { center->fromJson(form, nullptr); }), kUnresolvedCenter);
    EXPECT_EQ(refusal(chord, [&] { chord->fromJson(form, nullptr); }), kUnresolvedFrame);
    EXPECT_EQ(refusal(segment, [&] { segment->fromJson(form, nullptr); }), kUnresolvedSegment);
}

TEST_F(ControlJson, usedSkeletonIsNotReadInto)
{
    const XJsonObject form = stored();
    EXPECT_THROW(mPiece.skeleton()->fromJson(form, manager()), AssertionError);
    EXPECT_EQ(text(stored()), text(form));
}

TEST_F(ControlJson, itemsThatAreNoObjectsReadAsControlsThatLostTheirPiece)
{
    read("{'frames':[1,null,[]],'segments':'none'}");
    EXPECT_TRUE(mRead->getFrameLists().isEmpty());
    startAgain();
    read("{'center':null}"); // there, and empty
    EXPECT_NE(mRead->getFrameCenter(), nullptr);
}

TEST_F(ControlJson, elementsWithoutASetCannotBeStored)
{
    mPiece.set()->removeSegment(mSide->getFrameSegment());
    const std::unique_ptr<FrameSegment> segment(mSide->getFrameSegment());
    EXPECT_THROW(mSide->toJson(), AssertionError);

    FrameFrame *const hem = mHem->getFrameFrame();
    hem->setFrameCenter(nullptr);
    EXPECT_THROW(mHem->toJson(), AssertionError);
    hem->setFrameCenter(mPiece.frameCenter());

    mPiece.set()->removeCenter(mPiece.frameCenter());
    EXPECT_THROW(mPiece.axis->toJson(), AssertionError);
    EXPECT_THROW(mHem->toJson(), AssertionError);
    mPiece.set()->addCenter(mPiece.frameCenter(), -1);
    EXPECT_NO_THROW(mHem->toJson());
    mSide->Set_mFrameSegment(nullptr);
}

TEST_F(ControlJson, setWithAnEmptyNameLosesTheTieWithoutAnError)
{
    mPiece.set()->setName(QString());
    mRead->fromJson(stored(), manager());
    EXPECT_EQ(mRead->getFrameCenter()->Get_Frame_Centre(), nullptr);
    EXPECT_EQ(mRead->getFrameLists().at(0)->getFrameFrame(), nullptr);
}

TEST_F(ControlJson, firstOfTwoSetsOfOneNameIsMeant)
{
    auto *const twin = new FrameSet(QStringLiteral("set"), manager());
    manager()->addFrameSet(twin, 0);
    EXPECT_THROW(mRead->fromJson(stored(), manager()), AssertionError); // the twin has no such center
}

// A reading that failed leaves a skeleton whose walks refuse or answer, and that dies without harm.
TEST_F(ControlJson, halfReadSkeletonSurvivesItsQuestions)
{
    EXPECT_NE(failure("{" + axis() + ",'frames':[" +
                      frame("[" + id(mPiece.left(2)) + "," + id(mPiece.right(2)) + "]") + "," +
                      frame("[{'id':100000}]") + "]}"),
              "");
    ControlFrame *const empty = mRead->getFrameLists().at(1);
    ASSERT_EQ(empty->getVectorContour1(), nullptr);
    const GeoPoint2D point(1.0, 1.0);
    // Each question answers or raises an AssertionError.
    const std::function<void()> questions[] = {
        [&] { empty->calculateExtremity(); },
        [&] { empty->getRectBounding(); },
        [&] { empty->getMeasures(short(-1)); },
        [&] { empty->getLevel(short(-1)); },
        [&] { empty->isOnFrame(&point, 1.0, 1.0); },
        [&] { empty->isInternalFrame(); },
        [&] { mRead->getRectBounding(); },
        [&] { mRead->selectAllFrames(); },
        [&] { mRead->isValidForNewFrame(mCopy->firstGabarit()->gabaritFirstContourVector(), nullptr); },
        [&] { mRead->toJson(); },
    };
    int index = 0;
    for (const auto &question : questions) {
        try {
            question();
        } catch (const AssertionError &) {
        } catch (...) {
            ADD_FAILURE() << "question " << index << " raised something else";
        }
        ++index;
    }
    mRead.reset();
    EXPECT_EQ(mCopy->firstGabarit()->controlSkeleton(), nullptr);
}

} // namespace
