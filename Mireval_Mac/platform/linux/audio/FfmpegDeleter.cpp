#include "platform/linux/audio/FfmpegDeleter.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswresample/swresample.h>
}

namespace mireval {

void FfmpegDeleter::operator()(AVFormatContext* format) const {
  avformat_close_input(&format);
}

void FfmpegDeleter::operator()(AVCodecContext* codec) const {
  avcodec_free_context(&codec);
}

void FfmpegDeleter::operator()(AVPacket* packet) const {
  av_packet_free(&packet);
}

void FfmpegDeleter::operator()(AVFrame* frame) const {
  av_frame_free(&frame);
}

void FfmpegDeleter::operator()(SwrContext* converter) const {
  swr_free(&converter);
}

}  // namespace mireval
