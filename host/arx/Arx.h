#pragma once
// The CAD host's ARX interface as the module sees it: the host SDK's own
// headers when the build names an SDK (KVT1_ARX_SDK), else our declarations
// of the subset the module calls.
#ifdef KVT1_ARX_SDK
#include "accmd.h"
#include "acdocman.h"
#include "aced.h"
#include "adslib.h"
#include "arxEntryPoint.h"
#include "rxregsvc.h"
#else
#include "host/arx/ArxApp.h"
#include "host/arx/ArxClasses.h"
#include "host/arx/ArxFunctions.h"
#include "host/arx/ArxTypes.h"
#endif
