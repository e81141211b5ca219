#pragma once

#include <QSize>

#include <chrono>
#include <string>

/// How both ends find each other's pictures of the waveform. Whoever looks at one says so by writing the size
/// of its content again and again; the instrument draws one image for each size that is wanted.
namespace Velmora::WaveformTypes::Pictures {

/// For how long a picture is drawn after it was asked for.
inline constexpr std::chrono::milliseconds kLease{3000};
/// After which time to ask again.
inline constexpr std::chrono::milliseconds kRenewal{1000};

/// The content of the largest window.
inline constexpr QSize kLargestContent{4096, 2160};

/// The name in the picture feed of the image for windows with a content of this size.
std::string imageName(QSize content);

} // namespace Velmora::WaveformTypes::Pictures
