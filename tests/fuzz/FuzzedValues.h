#pragma once

#include "FuzzInput.h"

#include <systemd/sd-bus.h>

#include <span>
#include <string>
#include <string_view>

namespace mireval {

/// Appends values from a fuzzer's input to a message.
class FuzzedValues {
 public:
  explicit FuzzedValues(FuzzInput& input) : m_input(input) {}

  /// Appends values of these types, now and then of other types. The first values are the leading texts.
  void append(sd_bus_message* message, std::string_view types, std::span<const char* const> leadingTexts);

 private:
  void appendAll(sd_bus_message* message, std::string_view types, int depth);
  void appendOne(sd_bus_message* message, std::string_view type, int depth);
  void appendBasic(sd_bus_message* message, char type);
  void appendContainer(sd_bus_message* message, char kind, std::string_view contents, int depth);

  FuzzInput& m_input;
};

}  // namespace mireval
