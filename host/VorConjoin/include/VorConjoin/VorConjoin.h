// The pattern database: everything of this floor.
#pragma once

#include <VorConjoin/AbstrIteratorGroup.h>
#include <VorConjoin/BasedIndex.h>
#include <VorConjoin/CDbGroupObject.h>
#include <VorConjoin/CDbID.h>
#include <VorConjoin/CDbObjetVOR.h>
#include <VorConjoin/CDbPointVOR.h>
#include <VorConjoin/CurveObject.h>
#include <VorConjoin/DartContour.h>
#include <VorConjoin/Document.h>
#include <VorConjoin/GabaritObject.h>
#include <VorConjoin/GradationData.h>
#include <VorConjoin/IrregularGradationData.h>
#include <VorConjoin/IteratorGabarit.h>
#include <VorConjoin/IteratorVORSt.h>
#include <VorConjoin/IteratorVectorG.h>
#include <VorConjoin/LineObject.h>
#include <VorConjoin/Mirror.h>
#include <VorConjoin/PieceMarks.h>
#include <VorConjoin/SeekingObjectVOR.h>
#include <VorConjoin/VectorChain.h>
#include <VorConjoin/VectorKind.h>
#include <VorConjoin/t_Plan.h>
