// Does the piece obey? A table over frames and segments of every kind, on the garment pieces and on the nests
// named on the command line.
//
//     obedience [NEST.json ...]

#include <support/Obedience.h>

#include <cstdio>

int main(int count, char **arguments)
{
    std::vector<support::Subject> subjects = support::garmentSubjects();
    for (int argument = 1; argument < count; ++argument) {
        const std::vector<support::Subject> nest = support::nestSubjects(arguments[argument]);
        if (nest.empty()) {
            std::fprintf(stderr, "%s: no nest there\n", arguments[argument]);
            return 1;
        }
        subjects.insert(subjects.end(), nest.begin(), nest.end());
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
