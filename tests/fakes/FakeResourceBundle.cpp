#include "fakes/FakeResourceBundle.h"

#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

FakeResourceBundle::FakeResourceBundle(std::shared_ptr<EventLog> log) : m_log(std::move(log)) {}

std::optional<std::filesystem::path> FakeResourceBundle::urlForResource(const QString& name,
                                                                        const QString& extension,
                                                                        const QString& subdirectory) const {
  const QString resource = subdirectory + QLatin1Char('/') + name + QLatin1Char('.') + extension;
  m_log->add("bundle: "_L1 + resource);
  if (!m_resources.contains(resource)) {
    return std::nullopt;
  }
  return std::filesystem::path("/bundle") / resource.toStdString();
}

}  // namespace mireval
