#pragma once

class QPainter;

namespace mireval {

class FocusCover {
 public:
  /// Fills the square from (0, 0) to (1000, 1000). `number` is 1 to 10.
  static void paint(QPainter& painter, int number);
};

}  // namespace mireval
