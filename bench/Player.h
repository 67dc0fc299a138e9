#pragma once

#include <string>

namespace mireval::bench {

/// A player under measurement: it runs, is connected to the sound server and knows two files.
class Player {
 public:
  virtual ~Player() = default;

  virtual std::string name() const = 0;
  /// Plays the first file from its start, and then the second.
  virtual void play() = 0;
  virtual void stop() = 0;
};

}  // namespace mireval::bench
