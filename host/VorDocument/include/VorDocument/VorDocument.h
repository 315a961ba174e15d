// Whole pattern documents: everything of this floor.
#pragma once

#include <VorDocument/PatternDocument.h>
