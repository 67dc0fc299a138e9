#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswresample/swresample.h>
}

#include <memory>

namespace mireval {

/// Calls FFmpeg's function that ends and frees such an object.
template <auto release>
struct FfmpegDeleter {
  void operator()(auto* object) const { release(&object); }
};

/// Owns an object of FFmpeg, or none.
template <typename Object, auto release>
using FfmpegPointer = std::unique_ptr<Object, FfmpegDeleter<release>>;

}  // namespace mireval
