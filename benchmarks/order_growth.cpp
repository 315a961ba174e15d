// One ordering or reevaluation of one large set: a target for counting instructions (see order_growth.sh).
//
// order_growth SHAPE VALUES order|store|ask|under|destroy|nothing

#include "OrderShapes.h"

#include <cstdio>
#include <cstdlib>
#include <string>

using namespace VorSystem;

int main(int argc, char **argv)
{
    if (argc != 4) {
        std::fprintf(stderr, "order_growth SHAPE VALUES order|store|ask|under|destroy|nothing\n");
        return 2;
    }
    auto *const made = new shapes::LargeSet(argv[1], std::atoi(argv[2]));
    made->fillSizes();
    const std::string act = argv[3];
    FrameSet *const set = made->set();
    if (act == "order")
        set->isOrderEvaluation();
    else if (act == "store")
        set->reevaluate(Reevaluate_Store);
    else if (act == "ask")
        set->reevaluate(Reevaluate_Ask);
    else if (act == "under" && !set->getFrameSegments().isEmpty())
        set->reevaluateUnder(set->getFrameSegments().first(), Reevaluate_Store);
    else if (act == "under")
        set->reevaluateUnder(set->getFrames().first(), Reevaluate_Store);
    else if (act == "destroy")
        delete made;
    return 0; // otherwise the set is left to the end of the program
}
