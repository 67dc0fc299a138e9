#pragma once

#include <QGuiApplication>

namespace mireval {

/// The application object of a fuzzer, without a display.
class FuzzApplication {
 public:
  /// Makes it at the first call. It stays until the process ends.
  static void require() { [[maybe_unused]] static const auto* const application = new FuzzApplication; }

 private:
  FuzzApplication() = default;

  int m_argumentCount = 3;
  char m_programName[5] = "fuzz";
  char m_option[10] = "-platform";
  char m_platform[10] = "offscreen";
  char* m_arguments[4] = {m_programName, m_option, m_platform, nullptr};
  QGuiApplication m_application{m_argumentCount, m_arguments};
};

}  // namespace mireval
