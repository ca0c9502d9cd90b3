// The recording host's layer, all in one header: it shows that nothing of the stand-in is used.
#pragma once

#include "shared/RecordingHost.h"
