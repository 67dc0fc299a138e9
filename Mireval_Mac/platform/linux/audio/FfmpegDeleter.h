#pragma once

#include <memory>

struct AVCodecContext;
struct AVFormatContext;
struct AVFrame;
struct AVPacket;
struct SwrContext;

namespace mireval {

/// Closes and frees objects of FFmpeg.
struct FfmpegDeleter {
  void operator()(AVFormatContext* format) const;
  void operator()(AVCodecContext* codec) const;
  void operator()(AVPacket* packet) const;
  void operator()(AVFrame* frame) const;
  void operator()(SwrContext* converter) const;
};

template <typename Object>
using FfmpegPointer = std::unique_ptr<Object, FfmpegDeleter>;

}  // namespace mireval
