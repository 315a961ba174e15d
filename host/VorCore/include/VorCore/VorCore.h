// Everything of the application floor.
#pragma once

#include <VorCore/LengthUnit.h>
#include <VorCore/RelayBaton.h>
#include <VorCore/Utility.h>
#include <VorCore/VorCoreApplication.h>
#include <VorCore/VorLocale.h>
