// A document that was saved and read again makes the same next move: the same change by the same road gives
// the same pieces, in every size.

#include "TestDocument.h"

#include <BundledDocuments.h>
#include <VorDocument/DocumentFile.h>

#include <gtest/gtest.h>

#include <random>

using namespace VorSystem;
using documents::str;
using documents::text;

namespace
{

constexpr double kSame = 1e-9; // cm

// Says yes and keeps what the library said.
class Listener : public VorCoreApplication
{
public:
    void showMessage(const QString &words, const QString &, int) override { said << words; }
    bool askQuestion(const QString &words, const QString &, int) override
    {
        said << words;
        return true;
    }

    QStringList said;
};

using Random = std::mt19937;

int below(Random &random, int count)
{
    return static_cast<int>(random() % static_cast<unsigned>(count));
}

double between(Random &random, double least, double most)
{
    return least + (most - least) * static_cast<double>(random() % 10001) / 10000.0;
}

enum class Wanted { MeasureInNest, MeasureInAllSizes, LevelInNest, LevelInAllSizes };

// What is asked of an element, in numbers: the same for each document that it is asked of.
struct Change {
    int set = 0;
    eElementFrameType kind = Element_Frame;
    int index = 0;
    Wanted wanted = Wanted::MeasureInNest;
    QListEx<double> values; // one, or one for each size
};

BaseFrame *elementOf(const PatternDocument &document, const Change &change)
{
    const FrameSet *set = document.framesManager()->getFrameSets().at(change.set);
    switch (change.kind) {
    case Element_Segment: return set->getFrameSegments().at(change.index);
    case Element_Link: return set->getFrameLinks().at(change.index);
    case Element_Spec: return set->getFrameSpecs().at(change.index);
    default: return set->getFrames().at(change.index);
    }
}

Change randomChange(Random &random, const PatternDocument &document)
{
    const FrameSet *set = document.framesManager()->getFrameSets().first();
    const std::pair<eElementFrameType, int> kinds[] = {{Element_Frame, set->getFrames().size()},
                                                       {Element_Segment, set->getFrameSegments().size()},
                                                       {Element_Link, set->getFrameLinks().size()},
                                                       {Element_Spec, set->getFrameSpecs().size()}};
    int number = below(random, kinds[0].second + kinds[1].second + kinds[2].second + kinds[3].second);
    Change change;
    for (const auto &kind : kinds) {
        if (number >= 0 && number < kind.second) {
            change.kind = kind.first;
            change.index = number;
        }
        number -= kind.second;
    }
    const bool hasLevel = change.kind == Element_Frame;
    change.wanted = static_cast<Wanted>(below(random, hasLevel ? 4 : 2));

    BaseFrame *const element = elementOf(document, change);
    const bool isLevel = change.wanted == Wanted::LevelInNest || change.wanted == Wanted::LevelInAllSizes;
    const ValuesAccordingSizes &present =
        isLevel ? *element->getLevelBySizes() : *element->getMeasureBySizes();
    const double step = between(random, -1.5, 1.5);
    const double grow = between(random, -0.1, 0.1); // further for each size away from the nest
    if (change.wanted == Wanted::MeasureInNest || change.wanted == Wanted::LevelInNest) {
        change.values.append(present.mValues.at(present.mNestIndex) + step);
        return change;
    }
    for (int size = 0; size < present.mValues.size(); ++size)
        change.values.append(present.mValues.at(size) + step + grow * (size - present.mNestIndex));
    return change;
}

// The road that a program takes: ask, apply, bring what depends on it into line. What the library answers.
std::string takeTheRoad(PatternDocument &document, const Change &change)
{
    Listener listener;
    BaseFrame *const element = elementOf(document, change);
    bool isAsked = false;
    if (!BaseFrame::confirmChangesInFrames(element, AccordingTo_AskAlways, nullptr, true, &isAsked))
        return "declined";

    FrameSet *const set = element->getFrameSet();
    set->clearRemovedFormulas();
    const bool isLevel = change.wanted == Wanted::LevelInNest || change.wanted == Wanted::LevelInAllSizes;
    bool isRefused = false;
    bool isTaken = false;
    if (change.values.size() > 1)
        isTaken = element->applyValues(isLevel ? nullptr : &change.values, isLevel ? &change.values : nullptr,
                                       &isRefused);
    else
        isTaken = element->applyValues(isLevel ? nullptr : &change.values.first(),
                                       isLevel ? &change.values.first() : nullptr, &isRefused);
    if (isTaken) {
        set->reevaluateUnder(element, Reevaluate_Apply);
        set->reevaluate(Reevaluate_Apply);
    }
    return std::string(isTaken ? "taken" : "not taken") + (isRefused ? ", refused" : "") +
           (isAsked ? ", asked" : "") + ": " + str(listener.said.join(text("|")));
}

double distanceBetween(const ValuesAccordingSizes *a, const ValuesAccordingSizes *b)
{
    if (a == nullptr || b == nullptr)
        return a == b ? 0.0 : 1e9;
    if (a->mValues.size() != b->mValues.size() || a->mNestIndex != b->mNestIndex)
        return 1e9;
    double largest = 0.0;
    for (int size = 0; size < a->mValues.size(); ++size)
        largest = std::max(largest, std::abs(a->mValues.at(size) - b->mValues.at(size)));
    return largest;
}

// The largest distance of a vector in one document from itself in the other, over all sizes.
double distanceBetween(const PatternDocument &a, const PatternDocument &b)
{
    double largest = a.pieces().size() == b.pieces().size() ? 0.0 : 1e9;
    for (std::size_t place = 0; place < a.pieces().size() && largest < 1e9; ++place) {
        const auto one = support::vectorsOf(a.pieces()[place]);
        const auto other = support::vectorsOf(b.pieces()[place]);
        if (one.size() != other.size())
            return 1e9;
        for (std::size_t v = 0; v < one.size(); ++v) {
            if (one[v]->Num_ID() != other[v]->Num_ID())
                return 1e9;
            for (short size = 1; size <= a.gradationData()->gradationNum(); ++size)
                largest = std::max(largest, one[v]
                                                ->positionInSize(size, a.gradationData())
                                                .distance(other[v]->positionInSize(size, b.gradationData())));
        }
    }
    return largest;
}

void expectTheSameValues(const PatternDocument &a, const PatternDocument &b)
{
    const FrameSet *one = a.framesManager()->getFrameSets().first();
    const FrameSet *other = b.framesManager()->getFrameSets().first();
    const auto compare = [&](const auto &elements, const auto &others) {
        ASSERT_EQ(elements.size(), others.size());
        for (int index = 0; index < elements.size(); ++index) {
            BaseFrame *const x = elements.at(index);
            BaseFrame *const y = others.at(index);
            EXPECT_LE(distanceBetween(x->getMeasureBySizes(), y->getMeasureBySizes()), kSame)
                << str(x->fullName());
            EXPECT_LE(distanceBetween(x->getLevelBySizes(), y->getLevelBySizes()), kSame)
                << str(x->fullName());
            EXPECT_EQ(x->measurementFormula() == nullptr, y->measurementFormula() == nullptr);
            EXPECT_EQ(x->formulaLevel() == nullptr, y->formulaLevel() == nullptr);
        }
    };
    compare(one->getFrames(), other->getFrames());
    compare(one->getFrameLinks(), other->getFrameLinks());
    compare(one->getFrameSegments(), other->getFrameSegments());
    compare(one->getFrameSpecs(), other->getFrameSpecs());
}

// A link, a spec and a formula or two, so that one change brings others along.
void connect(Random &random, PatternDocument &document)
{
    const Listener listener; // a segment may not take its formula, and says so
    FrameSet *const set = document.framesManager()->getFrameSets().first();
    const QListEx<FrameFrame *> frames = set->getFrames();
    FrameSpec *const ease = set->newSpec(text("Ease"));
    ease->getMeasureBySizes()->mValues.append(between(random, -1.0, 1.0));
    if (frames.size() >= 2 && below(random, 2) == 0) {
        FrameLink *const link = set->newLink(text("Girth"));
        link->linkFrame(frames.at(0));
        link->linkFrame(frames.at(1));
    }
    const auto follow = [&](auto *element, BaseFrame *leader) {
        const double nest = element->getMeasures(3) - leader->getMeasures(3) - ease->getMeasures(0);
        const QString formula =
            text("Measure(%1) + Measure(Ease) + %2").arg(leader->fullName(), QString::number(nest, 'f', 3));
        element->setFormulaMeasurement(TreeEquations::parse(formula, set, true));
    };
    if (frames.size() >= 3 && below(random, 2) == 0)
        follow(frames.at(2), frames.at(below(random, 2)));
    const QListEx<FrameSegment *> segments = set->getFrameSegments();
    if (segments.size() >= 2 && below(random, 2) == 0)
        follow(segments.at(1), segments.at(0));
    document.pieces().back()->setLocked(below(random, 2) == 0);
    set->adjustMeasuresLevels();
    set->reevaluate(Reevaluate_Store);
}

// One document lives on in memory, the other is saved and read before every change.
TEST(RoundTrip, theSameChangeGivesTheSameGeometry)
{
    int taken = 0;
    int asked = 0;
    for (std::size_t which = 0; which < drafting::bundledDocuments().size(); ++which) {
        for (const unsigned seed : {1U, 2U, 3U}) {
            Random random(seed + 10 * static_cast<unsigned>(which));
            const auto bundled = drafting::bundledDocuments();
            PatternDocument &standing = *bundled[which].document;
            connect(random, standing);
            PatternDocument read;
            DocumentReport report;
            ASSERT_TRUE(documentFromText(documentToText(standing, &report), read, &report))
                << str(report.error);
            ASSERT_EQ(str(report.dropped.join(text("|"))), "");
            for (int number = 0; number < 4; ++number) {
                SCOPED_TRACE(str(bundled[which].fileName) + ", seed " + std::to_string(seed) + ", change " +
                             std::to_string(number));
                const Change change = randomChange(random, standing);
                const std::string answer = takeTheRoad(standing, change);
                EXPECT_EQ(takeTheRoad(read, change), answer);
                EXPECT_LE(distanceBetween(standing, read), kSame);
                expectTheSameValues(standing, read);
                taken += answer.compare(0, 5, "taken") == 0 ? 1 : 0;
                asked += answer.find("asked") != std::string::npos ? 1 : 0;

                const QByteArray words = documentToText(read, &report);
                ASSERT_TRUE(documentFromText(words, read, &report)) << str(report.error);
                EXPECT_EQ(str(documentToText(read)), str(words));
            }
        }
    }
    // Most changes are obeyed, and some pieces were locked.
    EXPECT_GE(taken, 24);
    EXPECT_GE(asked, 5);
}

} // namespace
