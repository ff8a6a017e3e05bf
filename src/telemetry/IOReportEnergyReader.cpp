// SPDX-License-Identifier: MIT
#include "telemetry/IOReportEnergyReader.h"

#include <utility>

namespace vtx {
namespace {

constexpr const char* paths[] = {"/usr/lib/libIOReport.dylib",
                                 "/System/Library/PrivateFrameworks/IOReport.framework/IOReport"};
constexpr int resolveLazily = 1;
constexpr const char* symbols[] = {"IOReportCopyChannelsInGroup",   "IOReportCreateSubscription",
                                   "IOReportCreateSamples",         "IOReportCreateSamplesDelta",
                                   "IOReportChannelGetChannelName", "IOReportChannelGetUnitLabel",
                                   "IOReportSimpleGetIntegerValue"};

std::unique_ptr<IOReport> openLibrary(IOReportLibrary& library) {
    for (const char* path : paths)
        if (auto opened = library.open(path, resolveLazily)) return opened;
    return nullptr;
}

}  // namespace

std::unique_ptr<IOReportEnergyReader> IOReportEnergyReader::make(IOReportLibrary& library) {
    auto opened = openLibrary(library);
    if (!opened) return nullptr;
    for (const char* symbol : symbols)
        if (!opened->resolve(symbol)) return nullptr;
    const auto channels = opened->copyChannelsInGroup("Energy Model", std::nullopt);
    if (!channels) return nullptr;
    auto subscribed = opened->createSubscription(*channels);
    if (!subscribed.subscription || !subscribed.channels) return nullptr;
    return std::make_unique<IOReportEnergyReader>(std::move(opened), std::move(subscribed));
}

IOReportEnergyReader::IOReportEnergyReader(std::unique_ptr<IOReport> library,
                                           IOReportSubscribed subscribed)
    : library_(std::move(library)),
      subscription_(std::move(subscribed.subscription)),
      subscribedChannels_(std::move(subscribed.channels)) {}

}  // namespace vtx
