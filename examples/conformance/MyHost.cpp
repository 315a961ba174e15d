// A host that is put to the test: the pieces on which the laws are tried, and the sizes they are graded in.

#include <VorConjoin/VorConjoin.h>
#include <conformance/HostUnderTest.h>

using namespace VorSystem;

namespace
{

struct Corner {
    double x; // cm
    double y; // cm
    int kind = Vector_Corner;
};

// A size more is 4 percent wider and 2 percent higher.
RegularSteps stepsAt(double x, double y)
{
    const Evolution step{0.04 * x, 0.02 * y};
    return {{-step.x, -step.y}, step};
}

std::vector<CDbPointVOR *> addContour(CDbGroupObject *piece, const std::vector<Corner> &corners)
{
    GabaritObject *gabarit = piece->newGabarit();
    std::vector<CDbPointVOR *> vectors;
    for (const Corner &corner : corners) {
        const RegularSteps steps = stepsAt(corner.x, corner.y);
        vectors.push_back(gabarit->addContourVector(GeoPoint2D(corner.x, corner.y), corner.kind, &steps));
    }
    return vectors;
}

// A waist dart with legs of equal length, and a curved armhole.
CDbGroupObject *newFront()
{
    auto *piece = new CDbGroupObject(QStringLiteral("Front"));
    const std::vector<CDbPointVOR *> v = addContour(piece, {{0.0, 0.0},
                                                            {8.0, 0.0},
                                                            {9.0, -0.5, Vector_DartCap},
                                                            {10.0, 0.0},
                                                            {20.0, 0.0},
                                                            {21.0, 20.0},
                                                            {17.0, 24.0, Vector_Curve},
                                                            {16.0, 38.0},
                                                            {0.0, 38.0}});
    piece->addCurve({v[5], v[6], v[7]});
    const RegularSteps steps = stepsAt(9.0, 15.0);
    CDbPointVOR *pivot = piece->addOwnVector(GeoPoint2D(9.0, 15.0), Vector_Corner, &steps);
    piece->addDart(piece->firstGabarit(), v[1], v[2], v[3], pivot);
    return piece;
}

// Mirrored about its upright middle.
CDbGroupObject *newBack()
{
    auto *piece = new CDbGroupObject(QStringLiteral("Back"));
    const std::vector<CDbPointVOR *> v = addContour(
        piece, {{-10.0, 0.0}, {10.0, 0.0}, {11.0, 20.0}, {9.0, 38.0}, {-9.0, 38.0}, {-11.0, 20.0}});
    Mirror *mirror = piece->setMirror(GeoPoint2D(0.0, 0.0), GeoPoint2D(0.0, 1.0));
    mirror->addPair(v[0], v[1]);
    mirror->addPair(v[5], v[2]);
    mirror->addPair(v[4], v[3]);
    return piece;
}

class MyHost final : public conformance::HostUnderTest
{
public:
    std::vector<std::string> pieces() const override { return {"Front", "Back"}; }

    CDbGroupObject *makePiece(const std::string &name) override
    {
        CDbGroupObject *piece = name == "Front" ? newFront() : newBack();
        piece->againObjects(true, &mSizes); // caps and handles go where a rebuild wants them
        return piece;
    }

    CDbGroupObject *copyPiece(const CDbGroupObject *piece) override { return piece->copy(); }
    void destroyPiece(CDbGroupObject *piece) override { delete piece; }
    const GradationData *gradation() const override { return &mSizes; }

private:
    GradationData mSizes{5, 3};
};

} // namespace

conformance::HostUnderTest &conformance::hostUnderTest()
{
    static MyHost host;
    return host;
}
