// What the tests of the suite share.

#include "HostUnderTest.h"

#include <cmath>
#include <cstdio>

namespace conformance
{

using namespace VorSystem;

void PieceLaw::Destroy::operator()(CDbGroupObject *piece) const
{
    hostUnderTest().destroyPiece(piece);
}

void PieceLaw::SetUp()
{
    gradation = hostUnderTest().gradation();
    ASSERT_NE(gradation, nullptr);
    sizes = gradation->gradationNum();
    nest = gradation->mediumIndex();
    group = keep(hostUnderTest().makePiece(GetParam()));
    ASSERT_NE(group, nullptr);
    IteratorGabarit gabarits(group);
    ASSERT_TRUE(gabarits.next(gabarit));
}

CDbGroupObject *PieceLaw::keep(CDbGroupObject *piece)
{
    mKept.emplace_back(piece);
    return piece;
}

PieceLaw::Vectors PieceLaw::vectors(IteratorVectorG::eTypeIterator type) const
{
    Vectors found;
    IteratorVectorGroup walk;
    walk.first(group, type);
    for (CDbPointVOR *v = nullptr; walk.next(v);)
        found.push_back(v);
    return found;
}

PieceLaw::Vectors PieceLaw::contour() const
{
    Vectors found;
    IteratorVectorGabarit walk;
    walk.first(gabarit, kEveryVector);
    for (CDbPointVOR *v = nullptr; walk.next(v);)
        found.push_back(v);
    return found;
}

PieceLaw::Vectors PieceLaw::anchors() const
{
    Vectors found;
    for (CDbPointVOR *v : contour()) {
        if (v->mVectorKind == 0 || v->mVectorKind == 1)
            found.push_back(v);
    }
    return found;
}

std::vector<DartContour *> PieceLaw::darts() const
{
    std::vector<DartContour *> found;
    IteratorClipContour walk;
    walk.first(gabarit->mFirstDart);
    for (DartContour *dart = nullptr; walk.next(dart);)
        found.push_back(dart);
    return found;
}

bool PieceLaw::mayBeRebuilt(const CDbPointVOR *v) const
{
    bool isPivot = false;
    for (const DartContour *dart : darts())
        isPivot = isPivot || dart->mPivotVector == v;
    return isPivot || group->isMirror() || (v->mVectorKind != 0 && v->mVectorKind != 1);
}

void PieceLaw::inEverySize(const std::function<void(short)> &act) const
{
    const Vectors all = vectors();
    for (CDbPointVOR *v : all)
        CDbPointVOR::setVectorInIrregular(v, gradation);
    for (short size = 1; size <= sizes; ++size) {
        for (CDbPointVOR *v : all)
            CDbPointVOR::swapEvolutionMedium(v, size);
        act(size);
        for (CDbPointVOR *v : all) {
            CDbPointVOR::recalculateEvolution(v, size);
            if (size == nest)
                CDbPointVOR::createEvolutionInOnlyMedium(v, size);
        }
    }
}

void PieceLaw::endReading() const
{
    for (CDbPointVOR *v : vectors())
        v->destroyVectorInRegular();
}

void PieceLaw::endWriting() const
{
    for (CDbPointVOR *v : vectors())
        v->tryResetGradationInRegular(gradation);
}

std::vector<PieceLaw::Places> PieceLaw::placesInEverySize() const
{
    std::vector<Places> found;
    inEverySize([&](short) {
        const Vectors all = vectors();
        Places places;
        places.reserve(all.size());
        for (const CDbPointVOR *v : all)
            places.emplace_back(v->x(), v->y());
        found.push_back(places);
    });
    endReading();
    return found;
}

void PieceLaw::expectNear(const std::vector<Places> &a, const std::vector<Places> &b, double tolerance)
{
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t size = 0; size < a.size(); ++size) {
        ASSERT_EQ(a[size].size(), b[size].size());
        for (std::size_t place = 0; place < a[size].size(); ++place) {
            EXPECT_NEAR(a[size][place].distance(b[size][place]), 0.0, tolerance)
                << "vector " << place + 1 << " of the walk, size " << size + 1;
        }
    }
}

std::vector<std::string> PieceLaw::bits() const
{
    std::vector<std::string> found;
    for (const CDbPointVOR *v : vectors()) {
        char text[80];
        std::snprintf(text, sizeof text, "%d: %a %a", v->mVectorKind, v->x(), v->y());
        std::string all = text;
        const IrregularGradationData *own = v->mIrregularGradation;
        for (short size = 0; own && size < own->size(); ++size) {
            const GeoPoint2D step = own->getGradation(t_0_Based(size));
            std::snprintf(text, sizeof text, " (%a %a)", step.x(), step.y());
            all += text;
        }
        found.push_back(all);
    }
    return found;
}

void PieceLaw::rebuild(bool gradationDefined) const
{
    group->againObjects(gradationDefined, gradation, true);
}

void PieceLaw::disturb(double amount) const
{
    int turn = 0;
    for (CDbPointVOR *v : anchors()) {
        ++turn;
        *v = GeoPoint2D(v->x() + amount * std::sin(2.3 * turn), v->y() + amount * std::cos(1.7 * turn));
    }
}

} // namespace conformance
