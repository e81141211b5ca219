#include "media/MediaHandles.h"

#include "media/Ffmpeg.h"

namespace Velmora::Media {

void FreeMedia::operator()(AVCodecContext* context) const
{
    avcodec_free_context(&context);
}

void FreeMedia::operator()(AVFormatContext* context) const
{
    avformat_close_input(&context);
}

void FreeMedia::operator()(AVFrame* frame) const
{
    av_frame_free(&frame);
}

void FreeMedia::operator()(AVPacket* packet) const
{
    av_packet_free(&packet);
}

void FreeMedia::operator()(SwrContext* context) const
{
    swr_free(&context);
}

void FreeMedia::operator()(SwsContext* context) const
{
    sws_freeContext(context);
}

} // namespace Velmora::Media
