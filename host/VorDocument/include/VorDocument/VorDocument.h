// Whole pattern documents: everything of this floor.
#pragma once

#include <VorDocument/DocumentDrawing.h>
#include <VorDocument/DocumentFile.h>
#include <VorDocument/NestImport.h>
#include <VorDocument/PatternDocument.h>
#include <VorDocument/PieceDraft.h>
#include <VorDocument/Transfer.h>
