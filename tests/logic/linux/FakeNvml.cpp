// SPDX-License-Identifier: MIT
// A library with the entry points of NVIDIA's management library, as its documentation gives them,
// for tests of the loading and of the order of calls.
#include <cstring>

namespace {

struct {
    int inits = 0;
    int shutdowns = 0;
    int lookups = 0;
    int initResult = 0;
    unsigned gpu = 42;
} state;

char device;

}  // namespace

extern "C" {

struct nvmlUtilization {
    unsigned int gpu;
    unsigned int memory;
};

int nvmlInit_v2() { return ++state.inits, state.initResult; }
int nvmlShutdown() { return ++state.shutdowns, 0; }
int nvmlDeviceGetHandleByPciBusId_v2(const char* address, void** found) {
    ++state.lookups;
    if (state.inits == state.shutdowns) return 1;             // no session
    if (std::strcmp(address, "0000:01:00.0") != 0) return 6;  // not found
    *found = &device;
    return 0;
}
int nvmlDeviceGetUtilizationRates(void* asked, nvmlUtilization* utilization) {
    if (state.inits == state.shutdowns) return 1;
    if (asked != &device) return 2;
    *utilization = {state.gpu, 7};
    return 0;
}

/// For the tests: forgets everything.
void fakeReset(int initResult) {
    state = {};
    state.initResult = initResult;
}
void fakeCounts(int* inits, int* shutdowns, int* lookups) {
    *inits = state.inits;
    *shutdowns = state.shutdowns;
    *lookups = state.lookups;
}
}
