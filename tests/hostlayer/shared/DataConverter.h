// The recording host layer is one header, which proves that nothing of the stand-in is used.
#pragma once

#include "shared/RecordingHost.h"
