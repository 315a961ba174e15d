// Does the piece obey? A table over frames and segments of every kind, on the garment pieces, or on the
// documents and nests named on the command line.
//
//     obedience [FILE ...]

#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/GabaritObject.h>
#include <VorDocument/DocumentFile.h>
#include <VorDocument/PatternDocument.h>
#include <support/Obedience.h>

#include <cstdio>

namespace
{

using namespace VorSystem;

support::Piece copied(const CDbGroupObject &model)
{
    support::Piece piece;
    piece.group.reset(model.copy());
    piece.gabarit = piece.group->firstGabarit();
    piece.contour = piece.gabarit->contourVectors();
    piece.dart = piece.gabarit->mFirstDart;
    return piece;
}

// The pieces of a document without their own controls; none for another file.
std::vector<support::Subject> documentSubjects(const char *path)
{
    std::vector<support::Subject> subjects;
    const auto document = std::make_shared<PatternDocument>();
    if (!loadDocument(QString::fromLocal8Bit(path), *document) || !document->gradationData())
        return subjects;
    for (const CDbGroupObject *piece : document->pieces()) {
        if (piece->firstGabarit())
            subjects.push_back({piece->name().toStdString(), [document, piece] { return copied(*piece); },
                                *document->gradationData()});
    }
    return subjects;
}

} // namespace

int main(int count, char **arguments)
{
    std::vector<support::Subject> subjects;
    if (count == 1)
        subjects = support::garmentSubjects();
    for (int argument = 1; argument < count; ++argument) {
        std::vector<support::Subject> found = documentSubjects(arguments[argument]);
        if (found.empty())
            found = support::nestSubjects(arguments[argument]);
        if (found.empty()) {
            std::fprintf(stderr, "%s: no document and no nest\n", arguments[argument]);
            return 1;
        }
        subjects.insert(subjects.end(), found.begin(), found.end());
    }

    const support::ObedienceOptions options;
    std::fputs(support::str(support::obedienceOfFrames(subjects, options)).c_str(), stdout);
    std::putchar('\n');
    std::fputs(support::str(support::obedienceOfSegments(subjects, options)).c_str(), stdout);

    std::puts("\nregraded from measures and levels alone, mm to the nest");
    std::puts("piece                     frames  failed  at frames  between  mean between  ungraded");
    for (const support::Subject &subject : subjects) {
        const support::Regraded outcome = support::regrade(subject);
        std::printf("%-26s %5d %7d %10.3f %8.3f %13.3f %9.3f\n", subject.name.c_str(), outcome.frames,
                    outcome.failures, outcome.atFrames, outcome.betweenFrames, outcome.meanBetween,
                    outcome.ungraded);
    }
    return 0;
}
