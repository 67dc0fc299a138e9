#include "FuzzedValues.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace mireval {
namespace {

/// What variants contain, and messages of the wrong types.
constexpr std::array<std::string_view, 16> knownTypes{
    "s", "u", "as", "v", "b", "d", "i", "x", "o", "a{sv}", "av", "ay", "(iiay)", "g", "sss", "sa{sv}as"};
/// The first of them are a single value each.
constexpr std::size_t singleTypes = 14;

constexpr std::size_t mostElements = 8;
constexpr int deepestContainer = 20;

/// How long the first complete type is.
std::size_t lengthOfFirst(std::string_view types) {
  if (types.front() == 'a') {
    return 1 + lengthOfFirst(types.substr(1));
  }
  int open = 0;
  for (std::size_t i = 0; i < types.size(); ++i) {
    if (types[i] == '(' || types[i] == '{') {
      ++open;
    } else if (types[i] == ')' || types[i] == '}') {
      --open;
    }
    if (open == 0) {
      return i + 1;
    }
  }
  return types.size();
}

}  // namespace

void FuzzedValues::append(sd_bus_message* message, std::string_view types,
                          std::span<const char* const> leadingTexts) {
  if (m_input.choice(16) == 15) {
    types = knownTypes.at(m_input.choice(knownTypes.size()));
    leadingTexts = {};
  }
  for (const char* const text : leadingTexts) {
    sd_bus_message_append_basic(message, 's', text);
  }
  appendAll(message, types.substr(leadingTexts.size()), 0);
}

void FuzzedValues::appendAll(sd_bus_message* message, std::string_view types, int depth) {
  while (!types.empty()) {
    const std::size_t length = lengthOfFirst(types);
    appendOne(message, types.substr(0, length), depth);
    types.remove_prefix(length);
  }
}

void FuzzedValues::appendOne(sd_bus_message* message, std::string_view type, int depth) {
  switch (type.front()) {
    case 'a':
      appendContainer(message, 'a', type.substr(1), depth + 1);
      break;
    case 'v': {
      const std::size_t choice = depth < deepestContainer ? m_input.choice(singleTypes) : 0;
      appendContainer(message, 'v', knownTypes.at(choice), depth + 1);
      break;
    }
    case '(':
      appendContainer(message, 'r', type.substr(1, type.size() - 2), depth + 1);
      break;
    case '{':
      appendContainer(message, 'e', type.substr(1, type.size() - 2), depth + 1);
      break;
    default:
      appendBasic(message, type.front());
  }
}

void FuzzedValues::appendContainer(sd_bus_message* message, char kind, std::string_view contents, int depth) {
  sd_bus_message_open_container(message, kind, std::string(contents).c_str());
  const std::size_t count = kind == 'a' ? m_input.choice(mostElements) : 1;
  for (std::size_t i = 0; i < count; ++i) {
    appendAll(message, contents, depth);
  }
  sd_bus_message_close_container(message);
}

void FuzzedValues::appendBasic(sd_bus_message* message, char type) {
  if (type == 's' || type == 'o' || type == 'g') {
    const std::string text = m_input.utf8Text();
    // sd-bus refuses to send an invalid path or signature.
    if (sd_bus_message_append_basic(message, type, text.c_str()) < 0) {
      sd_bus_message_append_basic(message, type, type == 'o' ? "/" : "");
    }
  } else if (type == 'b') {
    const int value = static_cast<int>(m_input.choice(2));
    sd_bus_message_append_basic(message, type, &value);
  } else if (type == 'y') {
    const auto value = m_input.number<std::uint8_t>();
    sd_bus_message_append_basic(message, type, &value);
  } else {
    // All other numbers that are sent are at most this long, and stand at its beginning.
    const auto value = type == 'd' || type == 'x' ? m_input.number<std::uint64_t>()
                                                  : std::uint64_t{m_input.number<std::uint32_t>()};
    sd_bus_message_append_basic(message, type, &value);
  }
}

}  // namespace mireval
