#pragma once

#include "platform/Notices.h"

#include <mutex>
#include <string>
#include <vector>

namespace mireval {

/// Keeps what was said.
class FakeNotices final : public Notices {
 public:
  void say(std::string_view text) override {
    const std::lock_guard lock(m_mutex);
    m_said.emplace_back(text);
  }

  std::vector<std::string> said() const {
    const std::lock_guard lock(m_mutex);
    return m_said;
  }

 private:
  mutable std::mutex m_mutex;
  std::vector<std::string> m_said;
};

}  // namespace mireval
