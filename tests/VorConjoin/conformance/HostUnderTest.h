// The host whose rules are tested: what the conformance suite needs of it beside the operations themselves.
//
// The maker of another host writes one class and defines hostUnderTest(), builds the suite against his own
// headers and links it: the tests in this folder call of a host only what the library calls as well.
#pragma once

#include <VorConjoin/VorConjoin.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace conformance
{

/// The two kinds of walks over vectors; hosts name the numbers as they like.
constexpr auto kEveryVector = static_cast<VorSystem::IteratorVectorG::eTypeIterator>(0);
constexpr auto kAnchorsOnly = static_cast<VorSystem::IteratorVectorG::eTypeIterator>(1);

/// Makes the pieces on which the rules are tested; each test makes its own.
class HostUnderTest
{
public:
    virtual ~HostUnderTest() = default;

    /// Names of the pieces, letters and digits alone; among them one with a dart of equal legs, one with a
    /// mirror and one with a curve on its contour.
    virtual std::vector<std::string> pieces() const = 0;
    /// A new piece, consistent in every size: a rebuild has nothing to do. Its first gabarit has three or
    /// more anchors.
    virtual VorSystem::CDbGroupObject *makePiece(const std::string &name) = 0;
    /// A copy with the same order, indices and identities.
    virtual VorSystem::CDbGroupObject *copyPiece(const VorSystem::CDbGroupObject *piece) = 0;
    /// Ends a piece that one of the two made.
    virtual void destroyPiece(VorSystem::CDbGroupObject *piece) = 0;
    /// The gradation of all pieces: three sizes or more, the nest neither the first nor the last.
    virtual const VorSystem::GradationData *gradation() const = 0;
};

/// The host that this program is linked with.
HostUnderTest &hostUnderTest();

/// One piece of the host, made anew for each test.
class PieceLaw : public testing::TestWithParam<std::string>
{
protected:
    using Vectors = std::vector<VorSystem::CDbPointVOR *>;
    using Places = std::vector<VorSystem::GeoPoint2D>;

    void SetUp() override;

    /// A piece that dies with the test.
    VorSystem::CDbGroupObject *keep(VorSystem::CDbGroupObject *piece);
    /// All vectors in the order of the walk; only anchors with type 1.
    Vectors vectors(VorSystem::IteratorVectorG::eTypeIterator type = kEveryVector) const;
    Vectors contour() const;
    Vectors anchors() const; ///< of the contour
    std::vector<VorSystem::DartContour *> darts() const;
    /// Vectors that a rebuild may move: dependents, pivots and mirrored pairs.
    bool mayBeRebuilt(const VorSystem::CDbPointVOR *v) const;

    /// One visit to every size: in it, act is called, then what moved is stored.
    void inEverySize(const std::function<void(short)> &act) const;
    void endReading() const;
    void endWriting() const;
    /// Places of all vectors, size by size, read through the grading operations.
    std::vector<Places> placesInEverySize() const;
    static void expectNear(const std::vector<Places> &a, const std::vector<Places> &b, double tolerance);
    /// Every bit of the nest and of the grading, as text.
    std::vector<std::string> bits() const;
    void rebuild(bool gradationDefined = true) const;
    /// Moves every anchor of the contour a little, in the nest or where it stands, mirror images alike.
    void disturb(double amount) const;

    VorSystem::CDbGroupObject *group = nullptr;
    VorSystem::GabaritObject *gabarit = nullptr;
    const VorSystem::GradationData *gradation = nullptr;
    short sizes = 0;
    short nest = 0;

private:
    struct Destroy {
        void operator()(VorSystem::CDbGroupObject *piece) const;
    };
    std::vector<std::unique_ptr<VorSystem::CDbGroupObject, Destroy>> mKept;
};

} // namespace conformance
