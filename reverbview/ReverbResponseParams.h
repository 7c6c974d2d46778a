#pragma once

// The record lives with the bridge that fills it; the response model and window read it from there.
#include "values/ReverbResponseParams.h"
