// The whole interface of the JSON value floor.
#pragma once

#include <VorJson/XJsonArray.h>
#include <VorJson/XJsonObject.h>
#include <VorJson/XJsonValue.h>
#include <VorJson/XJsonValueRef.h>
