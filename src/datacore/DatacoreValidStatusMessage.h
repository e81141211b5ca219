#pragma once

#include "datacore/DatacoreMessage.h"

/// Why a datacore is invalid.
class DatacoreValidStatusMessage : public DatacoreMessage<DatacoreValidStatusMessage> {
public:
    enum Content : int {
        IntegerOversized = 2,
        IntegerUndersized = 3,
        NumberOversized = 4,
        NumberUndersized = 5,
        NotIntegral = 6,
        NotFloatingPoint = 7,
        NotInt = 8,
        NotEnumValue = 9,
        NotBoolean = 10,
        NotVideoStandardUserDescription = 11,
        NotFalseColourOverlayRangesSummary = 12,
        NotSfpData = 13,
        NotActivePictureCrcValuesList = 14,
        NotGrandmasterInfo = 15,
        NotAudioFlowChannelsStructList = 16,
        NotAudioFlowDataList = 17,
        NotPtpMonitoring = 18,
        NotGpioConfig = 19,
        NotDesiredType = 20,
        TooFewItems = 21,
        TooManyItems = 22,
        DuplicateItems = 23,
        PictureBeyondViewableArea = 24,
        PayloadIdentifierMissing = 25,
        ValueNotSupported = 26,
        ConfigurationInvalid = 27,
        NotEnoughSpaceForPathologicalPairs = 28,
        NotVideoStandard = 29,
        NotVideoStandard2110 = 30,
        IpAddressZero = 31,
        InvalidMacAddress = 32,
        IpAddressNotMulticast = 33,
        IpAddressReservedMulticast = 34,
        IpAddressMulticast = 35,
        InterPacketDistributionRange = 36,
        SingleLineTriggerLevelB = 37,
        SingleFieldTriggerProgressive = 38,
        DriverARecalibration = 39,
        JitterLockFailed = 40,
        JitterUnreliableHigh = 41,
        JitterUnreliableLow = 42,
        VideoStandard2110ParamsInvalid = 43,
        PacketsPerMarkerUnstable = 44,
        Sfp25GNotSupported = 47,
        NotVideoStandardStats = 48,
        NotDolbyMetadataProgramConfig = 49,
        NotDolbyMetadataProgramParameters = 50,
        NotPcapCaptureStatistics = 51,
        Op47Unboxed = 52,
    };

    static constexpr QLatin1String kClassName{"DatacoreValidStatusMessage", 26};
    static const std::array<const char*, Op47Unboxed + 1> kTexts;

    using DatacoreMessage::DatacoreMessage;
};
