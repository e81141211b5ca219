#include "datacore/DatacoreValidStatusMessage.h"

// These are the words that other programs and manuals know, slips of spelling ("enouch", "IpV4" beside
// "IPV4") included. They stay.
constinit const std::array<const char*, DatacoreValidStatusMessage::Op47Unboxed + 1>
    DatacoreValidStatusMessage::kTexts = {
        "", // 0
        "", // 1
        "Stored integer is Oversized", // 2
        "Stored integer is Undersized", // 3
        "Stored number is Oversized", // 4
        "Stored number is Undersized", // 5
        "Stored value could not be deserialised into the specified integral type", // 6
        "Stored value could not be deserialised into the specified floating point type", // 7
        "Stored value could not be deserialised into type int", // 8
        "Stored value could not be deserialised into valid enum value", // 9
        "Stored value could not be deserialised into type boolean", // 10
        "Stored value could not be deserialised into type VideoStandardUserDescription", // 11
        "Stored value could not be deserialised into type FalseColourOverlayRangesSummaryStruct", // 12
        "Stored value could not be deserialised into type SfpData", // 13
        "Stored value could not be deserialised into type ActivePictureCrcValuesList", // 14
        "Stored value could not be deserialised into GrandmasterInfo", // 15
        "Stored value could not be deserialised into AudioFlowChannelsStructList", // 16
        "Stored value could not be deserialised into AudioFlowDataList", // 17
        "Stored value could not be deserialised into PTP Monitoring data", // 18
        "Stored value could not be deserialised into GPIO Config data", // 19
        "Stored value could not be deserialised into desired type", // 20
        "Stored Array has too few items", // 21
        "Stored Array has too many items", // 22
        "Stored Array contains duplicate items", // 23
        "The picture extends beyond the viewable area", // 24
        "The payload identifier is required and is missing", // 25
        "The stored value is not supported", // 26
        "The current configuration is in an invalid state", // 27
        "Not enouch space in active line for pathological pairs", // 28
        "Stored value could not be deserialised into type VideoStandard", // 29
        "Stored value could not be deserialised into type VideoStandard 2110", // 30
        "IpV4 Address is '0.0.0.0' which is considered invalid", // 31
        "Invalid Mac address", // 32
        "IpV4 address outside multicast range of 224.0.0.0 to 239.255.255.255", // 33
        "IPV4 address in reserved range of multicast address space (224.0.0.0 to 224.0.1.255)", // 34
        "IPV4 address inside range of multicast address space (224.0.0.0 to 239.255.255.255)", // 35
        "Inter packet distribution range is not valid for the current standard", // 36
        "Single line trigger not supported for level B", // 37
        "Single field trigger not supported for progressive", // 38
        "Driver A requires recalibration and Wz restart", // 39
        "Jitter lock failed", // 40
        "Jitter measurement unreliable (H)", // 41
        "Jitter measurement unreliable (L)", // 42
        "2110 Video standard parameters are invalid", // 43
        "Packets per marker bit not stable, 2110-21 will not function correctly", // 44
        "", // 45
        "", // 46
        "25G SFPs are not supported on this Wz device", // 47
        "Stored value could not be deserialised into type VideoStandardStats", // 48
        "Stored value could not be deserialised into type DolbyMetadataProgramConfig", // 49
        "Stored value could not be deserialised into type DolbyMetadataProgramParameters", // 50
        "Stored value could not be deserialised into type pcapCaptureStatistics", // 51
        "OP47 unboxed captions are being shown, these characters should not be displayed by decoders when "
        "bit C6 (subtitle) is set", // 52
};
