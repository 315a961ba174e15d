// Everything that the library exports, with the host headers that its interface needs.
#pragma once

#include <VorConjoin/VorConjoin.h>
#include <VorCore/VorCore.h>
#include <VorGeo/VorGeo.h>
#include <VorJson/VorJson.h>

#include <VorFrames/BaseFrame.h>
#include <VorFrames/CDbFrameCalculateMeasure.h>
#include <VorFrames/CDbFrameModifyMeasure.h>
#include <VorFrames/ControlBase.h>
#include <VorFrames/ControlCenter.h>
#include <VorFrames/ControlFrame.h>
#include <VorFrames/ControlSegment.h>
#include <VorFrames/ControlSkeleton.h>
#include <VorFrames/ElementEquation.h>
#include <VorFrames/Enumerations.h>
#include <VorFrames/EquivalenceSets.h>
#include <VorFrames/Errors.h>
#include <VorFrames/Evaluation.h>
#include <VorFrames/FormulaLimits.h>
#include <VorFrames/FrameCenter.h>
#include <VorFrames/FrameFrame.h>
#include <VorFrames/FrameLink.h>
#include <VorFrames/FrameMeasurementChart.h>
#include <VorFrames/FrameSegment.h>
#include <VorFrames/FrameSet.h>
#include <VorFrames/FrameSpec.h>
#include <VorFrames/GestFrames.h>
#include <VorFrames/OrderEvaluation.h>
#include <VorFrames/QListEx.h>
#include <VorFrames/RightRegion.h>
#include <VorFrames/TreeEquations.h>
#include <VorFrames/ValuesAccordingSizes.h>
