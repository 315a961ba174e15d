// The reference host as the suite's first client.

#include <conformance/HostUnderTest.h>

#include <support/Pieces.h>

namespace
{

using namespace VorSystem;

class ReferenceHost final : public conformance::HostUnderTest
{
public:
    std::vector<std::string> pieces() const override
    {
        return {"Bodice", "Sleeve", "TrouserLeg", "Skirt", "MirroredBack", "Random2", "Random7"};
    }

    CDbGroupObject *makePiece(const std::string &name) override
    {
        support::Piece piece;
        if (name == "Bodice")
            piece = support::bodiceWithDart();
        else if (name == "Sleeve")
            piece = support::sleeve();
        else if (name == "TrouserLeg")
            piece = support::trouserLeg();
        else if (name == "Skirt")
            piece = support::skirt();
        else if (name == "MirroredBack")
            piece = support::mirroredBack();
        else if (name == "Random2")
            piece = support::randomPiece(2, 14);
        else
            piece = support::randomPiece(7, 20);
        // Drafted places of dependents are near enough for a drawing; a rebuild makes them exact.
        piece.group->againObjects(true, &mSizes);
        return piece.release();
    }

    CDbGroupObject *copyPiece(const CDbGroupObject *piece) override { return piece->copy(); }
    void destroyPiece(CDbGroupObject *piece) override { delete piece; }
    const GradationData *gradation() const override { return &mSizes; }

private:
    GradationData mSizes = support::sevenSizes();
};

} // namespace

conformance::HostUnderTest &conformance::hostUnderTest()
{
    static ReferenceHost host;
    return host;
}
