#include "fakes/FakeMenuBarExtra.h"

#include <utility>

namespace mireval {

FakeMenuBarExtra::FakeMenuBarExtra(std::shared_ptr<EventLog> log) : m_log(std::move(log)) {}

void FakeMenuBarExtra::show(const std::filesystem::path& image, ActivationHandler activated,
                            MissingHandler missing) {
  m_activated = std::move(activated);
  m_missing = std::move(missing);
  m_placed = true;
  m_log->add(QLatin1String("menuBar: show ") + QString::fromStdString(image.string()));
}

void FakeMenuBarExtra::reportMissing() {
  m_placed = false;
  m_missing();
}

}  // namespace mireval
