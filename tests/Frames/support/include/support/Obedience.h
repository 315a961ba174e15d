// Does the piece obey? Puts frames and segments of every kind on pieces, asks for changes, and holds every
// answer against the piece.
#pragma once

#include <support/Pieces.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace support
{

/// A piece that can be made anew for every request.
struct Subject {
    std::string name;
    std::function<Piece()> make;
    VorSystem::GradationData gradation;
};

/// What became of the requests of one kind.
struct Obeyed {
    int requests = 0;
    std::map<int, int> results; ///< by eMsgConvergence
    std::vector<int> passes;    ///< of those that converged, each pass a rebuild
    double largestGap = 0.0;    ///< cm, wanted to read back, of those that converged
    double largestBend = 0.0;   ///< degrees by which a smooth contour bends more at a moved vector
    std::map<std::string, int> explanations; ///< of those that did not converge
    double medianOfPasses() const;
};

struct ObedienceOptions {
    std::vector<double> factors = {0.90, 0.95, 1.05, 1.10};
    bool everyKind = true; ///< false: a sample, for a quick look
};

/// Results by kind of request, in a fixed order.
using ObedienceTable = std::map<std::string, Obeyed>;

ObedienceTable obedienceOfFrames(const std::vector<Subject> &subjects, const ObedienceOptions &options);
ObedienceTable obedienceOfSegments(const std::vector<Subject> &subjects, const ObedienceOptions &options);
std::string str(const ObedienceTable &table);

/// How near a piece comes to its own nest when its grading is taken away and its measures and levels per size
/// are imposed again. Distances in mm over all sizes, to the contour as it was.
struct Regraded {
    int frames = 0;
    int failures = 0;
    double atFrames = 0.0;      ///< largest, at the vectors of frames
    double betweenFrames = 0.0; ///< largest, at all other contour vectors
    double meanBetween = 0.0;
    double ungraded = 0.0; ///< the same largest distance with no grading at all
};
Regraded regrade(const Subject &subject);

/// The five garment pieces.
std::vector<Subject> garmentSubjects();
/// The pieces of a nest file.
std::vector<Subject> nestSubjects(const std::string &path);

} // namespace support
