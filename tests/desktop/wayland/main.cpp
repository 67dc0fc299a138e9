// Holds a pointer and a keyboard on the Wayland desktop that WAYLAND_DISPLAY names, and obeys the lines on
// standard input until it ends:
//   move X Y WIDTH HEIGHT         to a position in the rectangle that all screens take up together
//   press|release left|middle|right
//   scroll NOTCHES                down, or up when negative
//   type SYMBOL                   one key, such as Escape, space or a
// Each is answered by the line "done". The first that fails ends the program, with a line on standard error.

#include "VirtualInput.h"

#include <exception>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace mireval::test {
namespace {

template <typename Value>
Value read(std::istream& words) {
  Value value{};
  if (!(words >> value)) {
    throw std::runtime_error("an argument is missing or wrong");
  }
  return value;
}

VirtualInput::Button readButton(std::istream& words) {
  const auto name = read<std::string>(words);
  if (name == "left") {
    return VirtualInput::Button::left;
  }
  if (name == "middle") {
    return VirtualInput::Button::middle;
  }
  if (name == "right") {
    return VirtualInput::Button::right;
  }
  throw std::runtime_error("there is no button " + name);
}

void obey(VirtualInput& input, const std::string& line) {
  std::istringstream words(line);
  const auto command = read<std::string>(words);
  if (command == "move") {
    const auto x = read<std::uint32_t>(words);
    const auto y = read<std::uint32_t>(words);
    const auto width = read<std::uint32_t>(words);
    const auto height = read<std::uint32_t>(words);
    input.move(x, y, width, height);
  } else if (command == "press") {
    input.press(readButton(words));
  } else if (command == "release") {
    input.release(readButton(words));
  } else if (command == "scroll") {
    input.scroll(read<int>(words));
  } else if (command == "type") {
    input.type(read<std::string>(words));
  } else {
    throw std::runtime_error("there is no command " + command);
  }
}

}  // namespace
}  // namespace mireval::test

int main() {
  std::string line;
  try {
    mireval::test::VirtualInput input;
    while (std::getline(std::cin, line)) {
      mireval::test::obey(input, line);
      std::cout << "done" << std::endl;
    }
  } catch (const std::exception& error) {
    std::cerr << "virtual_input: " << (line.empty() ? "" : line + ": ") << error.what() << '\n';
    return 1;
  }
  return 0;
}
