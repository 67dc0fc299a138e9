#pragma once

#include "platform/Notices.h"

#include <string>
#include <vector>

namespace mireval {

/// Keeps what was said.
class FakeNotices final : public Notices {
 public:
  void say(std::string_view text) override { m_said.emplace_back(text); }

  const std::vector<std::string>& said() const { return m_said; }

 private:
  std::vector<std::string> m_said;
};

}  // namespace mireval
