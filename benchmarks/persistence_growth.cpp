// One writing or reading of one document: a target for counting instructions (see persistence_growth.sh).
//
// persistence_growth SHAPE ELEMENTS write|read|nothing

#include "SampleDocument.h"

#include <VorFrames/VorFrames.h>
#include <VorJson/VorJson.h>

#include <cstdio>
#include <cstdlib>
#include <string>

using namespace VorSystem;

int main(int argc, char **argv)
{
    if (argc != 4) {
        std::fprintf(stderr, "persistence_growth SHAPE ELEMENTS write|read|nothing\n");
        return 2;
    }
    const XJsonObject object = XJsonObject::fromJsonObject(sampleDocument(argv[1], std::atoi(argv[2])));
    auto *const manager = new GestFrames; // left to the end of the program, as all that is made here
    const std::string act = argv[3];
    // What is to be written has to be read first, so that both acts and their base read once.
    manager->fromJson(object, false);
    if (act == "write")
        new XJsonObject(manager->toJson());
    else if (act == "read")
        (new GestFrames)->fromJson(object, false);
    return 0;
}
