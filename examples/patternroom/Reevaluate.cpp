// Bringing a whole document into line.
#include "Commands.h"
#include "Road.h"

#include <algorithm>
#include <iterator>

namespace room
{

using namespace VorSystem;

namespace
{

struct Expected {
    Difference difference;
    std::vector<Readback> astray; ///< what would not follow its formula
    QStringList messages;
};

Expected expectedOf(const PatternDocument &document, const LengthStyle &style)
{
    const DocumentPtr copy = copyOf(document);
    const Rehearsal rehearsal(style.unit);
    const Snapshot before = snapshotOf(*copy);
    const std::vector<Readback> driven = settle(*copy);
    Expected expected{differenceOf(before, snapshotOf(*copy)), {}, rehearsal.messages()};
    std::copy_if(driven.begin(), driven.end(), std::back_inserter(expected.astray),
                 [](const Readback &element) { return !element.isObeyed(); });
    return expected;
}

} // namespace

int reevaluate(const ReevaluateOptions &options)
{
    if (!options.isDryRun)
        requireTarget(options);
    const DocumentPtr document = openDocument(options.document);
    const Expected expected = expectedOf(*document, options.style);
    const QString text = describe(expected.difference, *document, options.style);
    if (!expected.difference.lostFormulas.empty() || !expected.astray.empty()) {
        throw Refusal(
            withMessages(QStringLiteral("Not everything can be brought into line: the document "
                                        "stays as it was."),
                         expected.messages),
            Exit_NotObeyed,
            text + describe(expected.astray, QStringLiteral("follows a formula"), *document, options.style));
    }
    if (options.isDryRun) {
        options.console->print(text.isEmpty() ? QStringLiteral("Nothing would move.\n") : text);
        return Exit_Done;
    }

    std::vector<ElementPlace> concerned;
    for (const MovedElement &moved : expected.difference.elements)
        concerned.push_back(moved.place);
    if (!mayMove(*document, concerned))
        throw Refusal(QStringLiteral("Nothing was changed."), Exit_Declined);
    settle(*document);
    store(options, *document);
    options.console->print(text.isEmpty() ? QStringLiteral("Everything was in line.\n") : text);
    return Exit_Done;
}

} // namespace room
