#pragma once

#include "types/sdi/PayloadIdentifierField.h"

/// Places of payload identifier fields, named as default (nearly all families), general (the newer families)
/// or after the layout that they belong to. Byte indices count from 0, so that index 1 is byte 2 of SMPTE ST
/// 352.
namespace Velmora::Sdi::PayloadFieldDefinitions {

constexpr PayloadIdentifierField defaultPayloadIdentifierFieldDefinition()
{
    return {0, {0, 1, 2, 3, 4, 5, 6, 7}};
}
constexpr PayloadIdentifierField defaultPictureRateFieldDefinition()
{
    return {1, {0, 1, 2, 3}};
}
constexpr PayloadIdentifierField generalTransferCharacteristicsFieldDefinition()
{
    return {1, {4, 5}};
}
constexpr PayloadIdentifierField defaultPictureFormatFieldDefinition()
{
    return {1, {6}};
}
constexpr PayloadIdentifierField defaultTransportFormatFieldDefinition()
{
    return {1, {7}};
}
constexpr PayloadIdentifierField defaultSamplingStructureFieldDefinition()
{
    return {2, {0, 1, 2, 3}};
}
constexpr PayloadIdentifierField generalHorizontalPixelArraySizeFieldDefinition()
{
    return {2, {6}};
}
constexpr PayloadIdentifierField defaultBitDepthFieldDefinition()
{
    return {3, {0, 1}};
}
constexpr PayloadIdentifierField generalLuminanceAndColourDifferenceFieldDefinition()
{
    return {3, {4}};
}
constexpr PayloadIdentifierField defaultChannelFieldDefinition()
{
    return {3, {5, 6, 7}};
}

/// One bit of depth: 81h and 84h.
constexpr PayloadIdentifierField singleBitDepthFieldDefinition()
{
    return {3, {0}};
}
/// Link A or B of ST 372.
constexpr PayloadIdentifierField dualLinkChannelFieldDefinition()
{
    return {3, {6}};
}
/// One of four links or streams: ST 425-3 and ST 425-5 level A.
constexpr PayloadIdentifierField fourChannelFieldDefinition()
{
    return {3, {6, 7}};
}
constexpr PayloadIdentifierField audioCopyStatusFieldDefinition()
{
    return {3, {2}};
}

/// Layout of everything that is made of 1.5G streams (ST 292-1, ST 372, level B): the aspect bit of ST 292-1
/// stayed in the middle, so that colourimetry had to be split around it.
constexpr PayloadIdentifierField splitAspectRatioFieldDefinition()
{
    return {2, {5}};
}
constexpr PayloadIdentifierField splitColourimetryFieldDefinition()
{
    return {2, {4, 7}};
}

/// Layout of everything that is mapped directly (ST 425-1 level A, ST 2081, ST 2082).
constexpr PayloadIdentifierField contiguousAspectRatioFieldDefinition()
{
    return {2, {7}};
}
constexpr PayloadIdentifierField contiguousColourimetryFieldDefinition()
{
    return {2, {4, 5}};
}

/// The map of an identifier whose family is not known.
constexpr PayloadIdentifierFieldMap defaultFieldMap()
{
    using Type = PayloadIdentifierFieldType;
    return {
        {Type::PayloadAndDigitalInterface, defaultPayloadIdentifierFieldDefinition()},
        {Type::PictureRate, defaultPictureRateFieldDefinition()},
        {Type::TransferCharacteristics, generalTransferCharacteristicsFieldDefinition()},
        {Type::PictureFormat, defaultPictureFormatFieldDefinition()},
        {Type::TransportFormat, defaultTransportFormatFieldDefinition()},
        {Type::SamplingStructure, defaultSamplingStructureFieldDefinition()},
        {Type::HorizontalPixelArraySize, generalHorizontalPixelArraySizeFieldDefinition()},
        {Type::BitDepth, defaultBitDepthFieldDefinition()},
        {Type::LuminanceAndColourDifferenceSignal, generalLuminanceAndColourDifferenceFieldDefinition()},
        {Type::Channel, defaultChannelFieldDefinition()},
    };
}

} // namespace Velmora::Sdi::PayloadFieldDefinitions
