// Whole pattern documents: everything of this floor.
#pragma once

#include <VorDocument/DocumentFile.h>
#include <VorDocument/PatternDocument.h>
#include <VorDocument/PieceDraft.h>
