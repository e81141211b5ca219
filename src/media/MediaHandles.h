#pragma once

#include <memory>

struct AVCodecContext;
struct AVFormatContext;
struct AVFrame;
struct AVPacket;
struct SwrContext;
struct SwsContext;

namespace Velmora::Media {

struct FreeMedia {
    void operator()(AVCodecContext* context) const;
    void operator()(AVFormatContext* context) const;
    void operator()(AVFrame* frame) const;
    void operator()(AVPacket* packet) const;
    void operator()(SwrContext* context) const;
    void operator()(SwsContext* context) const;
};

/// Owns an object of FFmpeg's.
template<typename Object>
using MediaHandle = std::unique_ptr<Object, FreeMedia>;

} // namespace Velmora::Media
