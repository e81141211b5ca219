#pragma once

#include "server/sources/VideoFrame.h"
#include "types/sdi/StandardFromPayloadIdentifier.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace Velmora::Server {

/// What follows from a format, and its way to the SDI standard that carries it and back.
namespace VideoFormats {

/// Sides of a picture that anything here makes or takes in.
inline constexpr int kLargestSide = 8192;

int bitsOf(Sdi::PayloadId::BitDepth depth);
bool isFullRange(Sdi::PayloadId::BitDepth depth);
bool isRgb(Sdi::PayloadId::SampleStructure sampling);
/// Whether colour differences have half the samples of a line.
bool isChromaHalved(Sdi::PayloadId::SampleStructure sampling);
bool hasAlpha(Sdi::PayloadId::SampleStructure sampling);

/// When a frame starts at the format's rate, whatever its number.
std::chrono::nanoseconds timeOfFrame(const VideoFormat& format, std::uint64_t number);

/// The pictures of a standard; nothing where they are not of components that this instrument handles (4:2:0,
/// X'Y'Z', data in the place of alpha, ICtCp) or not of a known size and rate.
std::optional<VideoFormat> formatOf(const Sdi::StandardFromPayloadIdentifier& standard);

/// The standard with the fewest links that carries such pictures, with @p format's colours as far as it can
/// tell them; nothing for pictures that no SDI standard has. Pictures of 8 bits travel in 10-bit words where
/// the interface has no code for 8.
std::optional<Sdi::StandardFromPayloadIdentifier> standardOf(const VideoFormat& format);

/// "1920x1080i50 YCbCr:422:10 SDR-TV Rec.709": also for pictures that no standard has.
QString toText(const VideoFormat& format);

} // namespace VideoFormats

} // namespace Velmora::Server
